#include "core/TestDates.h"

#include "core/Dates.h"

#include "support/Hermetic.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestDates::dayCountsIgnoreTheTimeOfDay() {
    const DateValue birth = toDateValue(QDate(1981, 12, 25));
    const DateValue day = toDateValue(QDate(1981, 12, 26));
    QCOMPARE(dayCount(birth + 0.9, day + 0.1), 1);
    QCOMPARE(dayCount(birth, birth + 0.99), 0);
    QCOMPARE(dayNumber(-1.25), -1);
    QCOMPARE(toDateValue(QDate(1899, 12, 30)), 0.0);
    QCOMPARE(toQDate(0), QDate(1899, 12, 30));
}

void TestDates::dayCountsMayBeNegative() {
    QCOMPARE(dayCount(toDateValue(QDate(2000, 3, 1)), toDateValue(QDate(2000, 2, 28))), -2);
    QCOMPARE(dayCount(toDateValue(QDate(9999, 12, 31)), toDateValue(QDate(100, 1, 1))), -3615899);
}

void TestDates::shortDates_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("Italian") << u"it_IT"_s << u"05/06/1985"_s;
    QTest::newRow("American") << u"en_US"_s << u"06/05/1985"_s;
    QTest::newRow("British") << u"en_GB"_s << u"05/06/1985"_s;
    QTest::newRow("German") << u"de_DE"_s << u"05.06.1985"_s;
    QTest::newRow("Swedish") << u"sv_SE"_s << u"1985-06-05"_s;
    QTest::newRow("Hungarian") << u"hu_HU"_s << u"1985.06.05"_s;
    QTest::newRow("none") << u"C"_s << u"05/06/1985"_s;
}

void TestDates::shortDates() {
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QCOMPARE(shortDate(toDateValue(QDate(1985, 6, 5)), QLocale(locale)), text);
}

void TestDates::longDatesAreTheLocales() {
    const DateValue date = toDateValue(QDate(1981, 12, 25));
    QCOMPARE(longDate(date, QLocale(u"it_IT"_s)), u"venerdì 25 dicembre 1981"_s);
    QCOMPARE(longDate(date, QLocale(u"en_US"_s)), u"Friday, December 25, 1981"_s);
}

} // namespace quor::test
