#include "core/TestDateEntry.h"

#include "core/Clock.h"
#include "core/DateEntry.h"

#include "support/Hermetic.h"

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QLocale& italian() {
    static const QLocale locale(u"it_IT"_s);
    return locale;
}

} // namespace

void TestDateEntry::accepted_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    const auto row = [](const char* text, QDate date) {
        QTest::newRow(text) << QString::fromUtf8(text) << date;
    };
    row("25/12/1981", {1981, 12, 25});
    row("13 Nov 1945", {1945, 11, 13});
    row("05-06-85", {1985, 6, 5});
    row("5.6.1985", {1985, 6, 5});
    row("  25/12/1981  ", {1981, 12, 25});
    row("25 / 12 / 1981", {1981, 12, 25});
    row("25 12 1981", {1981, 12, 25});
    row("1 gennaio 2000", {2000, 1, 1});
    row("1 GENNAIO 2000", {2000, 1, 1});
    row("1-gen-00", {2000, 1, 1});
    row("13 nov. 1945", {1945, 11, 13});
    row("4 July 1976", {1976, 7, 4});
    row("July 4 1976", {1976, 7, 4});
    row("1981-12-25", {1981, 12, 25});
    row("1981/2/3", {1981, 2, 3});
    row("12/25/1981", {1981, 12, 25}); // no 25th month: day and month swapped
    row("01/01/29", {2029, 1, 1});
    row("01/01/30", {1930, 1, 1});
    row("01/01/99", {1999, 1, 1});
    row("01/01/0100", {100, 1, 1});
    row("31/12/9999", {9999, 12, 31});
    row("29/02/2000", {2000, 2, 29});
}

void TestDateEntry::accepted() {
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QVERIFY(isDateText(text, italian()));
    QCOMPARE(toQDate(dateFromText(text, italian())), date);
}

void TestDateEntry::refused_data() {
    QTest::addColumn<QString>("text");
    for (const char* text : {"",
                             "   ",
                             "oggi",
                             "31/02/2000",
                             "29/02/1900",
                             "25/12",
                             "25/12/1981/1",
                             "25/12/198",
                             "25/12/19811",
                             "0/1/2000",
                             "32/01/2000",
                             "13/13/2000",
                             "01/01/0099",
                             "01/01/10000",
                             "25 Foo 1981",
                             "quindici marzo 2004",
                             "25/12/1981 10:30",
                             "-5/-6/85",
                             "5,6,1985",
                             "//",
                             "99999999999999999999/1/2000",
                             "1/1/2OOO",
                             "１/１/２０００"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
    QTest::newRow("a million signs") << QString(1'000'000, u'/');
    QTest::newRow("an embedded zero") << u"25/12/1981\0"_s + QChar(u'\0');
}

void TestDateEntry::refused() {
    QFETCH(QString, text);
    QVERIFY(!isDateText(text, italian()));
    QCOMPARE(dateFromText(text, italian()), 0.0);
}

void TestDateEntry::ordersOfOtherLocales_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("American") << u"en_US"_s << u"05-06-85"_s << QDate(1985, 5, 6);
    QTest::newRow("American, day first") << u"en_US"_s << u"25/12/1981"_s << QDate(1981, 12, 25);
    QTest::newRow("Swedish") << u"sv_SE"_s << u"85-06-05"_s << QDate(1985, 6, 5);
    QTest::newRow("Swedish, day first") << u"sv_SE"_s << u"25-12-1981"_s << QDate(1981, 12, 25);
    QTest::newRow("Italian name in Germany")
        << u"de_DE"_s << u"3 marzo 2004"_s << QDate(2004, 3, 3);
    QTest::newRow("German name") << u"de_DE"_s << u"3 März 2004"_s << QDate(2004, 3, 3);
    QTest::newRow("none") << u"C"_s << u"05-06-85"_s << QDate(1985, 6, 5);
}

void TestDateEntry::ordersOfOtherLocales() {
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QVERIFY(isDateText(text, QLocale(locale)));
    QCOMPARE(toQDate(dateFromText(text, QLocale(locale))), date);
}

void TestDateEntry::shownDatesCanBeTypedBack_data() {
    QTest::addColumn<QString>("locale");
    for (const char* locale :
         {"it_IT", "en_US", "en_GB", "de_DE", "fr_CA", "sv_SE", "hu_HU", "ja_JP", "bg_BG", "C"}) {
        QTest::newRow(locale) << QString::fromLatin1(locale);
    }
}

void TestDateEntry::shownDatesCanBeTypedBack() {
    QFETCH(QString, locale);
    for (const QDate date : {QDate(100, 1, 1), QDate(1945, 11, 13), QDate(2004, 2, 3),
                             QDate(2011, 10, 12), QDate(9999, 12, 31)}) {
        const QString shown = shortDate(toDateValue(date), QLocale(locale));
        QVERIFY2(isDateText(shown, QLocale(locale)), qPrintable(shown));
        QCOMPARE(toQDate(dateFromText(shown, QLocale(locale))), date);
    }
}

void TestDateEntry::theWordOggi() {
    QVERIFY(isTodayKeyword(u"oggi"_s));
    QVERIFY(isTodayKeyword(u"  OGGI \t"_s));
    QVERIFY(isTodayKeyword(u"Oggi"_s));
    QVERIFY(!isTodayKeyword(u"ogg i"_s));
    QVERIFY(!isTodayKeyword(u"domani"_s));
    QVERIFY(!isTodayKeyword({}));
}

void TestDateEntry::dialogEntry() {
    const auto entry = acceptBiorhythmEntry(u"  Maria Rossi "_s, u"1981-12-25"_s, u" 2004-03-15"_s);
    QVERIFY(entry.has_value());
    QCOMPARE(entry->name, u"Maria Rossi"_s);
    QCOMPARE(toQDate(entry->birthDate), QDate(1981, 12, 25));
    QCOMPARE(toQDate(entry->calculationDate), QDate(2004, 3, 15));

    QVERIFY(!acceptBiorhythmEntry(u"   "_s, u"1981-12-25"_s, u"2004-03-15"_s));
    QVERIFY(!acceptBiorhythmEntry(u"Maria"_s, u"31/02/2000"_s, u"2004-03-15"_s));
    QVERIFY(!acceptBiorhythmEntry(u"Maria"_s, u"1981-12-25"_s, u"oggi"_s));
    // A birth after the calculation date is nobody's business.
    QVERIFY(acceptBiorhythmEntry(u"Maria"_s, u"2104-03-15"_s, u"1981-12-25"_s));
}

void TestDateEntry::calculationDateBox() {
    const FixedClock clock(QDate(2026, 11, 21));
    QCOMPARE(acceptCalculationDate(u"  OGGI "_s), std::optional(toDateValue(QDate(2026, 11, 21))));
    for (const auto& [text, date] : {std::pair{u"25 Dic 1981"_s, QDate(1981, 12, 25)},
                                     {u"13 Nov 1945"_s, QDate(1945, 11, 13)}}) {
        QCOMPARE(acceptCalculationDate(text), std::optional(toDateValue(date)));
    }
    QVERIFY(!acceptCalculationDate({}));
    QVERIFY(!acceptCalculationDate(u"ieri"_s));
}

} // namespace quor::test
