#include "views/graph/TestWeekState.h"

#include "core/Cycles.h"
#include "views/graph/WeekState.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Biorhythm person(QDate birth, QDate calculation) {
    Biorhythm biorhythm;
    biorhythm.birthDate = toDateValue(birth);
    biorhythm.calculationDate = toDateValue(calculation);
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    return biorhythm;
}

} // namespace

void TestWeekState::weekOfADate_data() {
    QTest::addColumn<QDate>("calculation");
    QTest::addColumn<int>("weekday");
    QTest::addColumn<QDate>("monday");
    QTest::addColumn<int>("dayCount");

    const QDate monday(2004, 3, 15);
    QTest::newRow("Monday") << monday << 1 << monday << 8116;
    QTest::newRow("Tuesday") << QDate(2004, 3, 16) << 2 << monday << 8116;
    QTest::newRow("Saturday") << QDate(2004, 3, 20) << 6 << monday << 8116;
    QTest::newRow("Sunday") << QDate(2004, 3, 21) << 7 << monday << 8116;
    QTest::newRow("next Monday") << QDate(2004, 3, 22) << 1 << QDate(2004, 3, 22) << 8123;
    QTest::newRow("across a year") << QDate(2004, 1, 1) << 4 << QDate(2003, 12, 29) << 8039;
    QTest::newRow("the birth, a Friday") << QDate(1981, 12, 25) << 5 << QDate(1981, 12, 21) << -4;
    QTest::newRow("before the birth") << QDate(1981, 9, 30) << 3 << QDate(1981, 9, 28) << -88;
    QTest::newRow("before the dates' origin")
        << QDate(1899, 12, 24) << 7 << QDate(1899, 12, 18) << -29957;
}

void TestWeekState::weekOfADate() {
    QFETCH(QDate, calculation);
    const Week week = weekOf(person({1981, 12, 25}, calculation));
    QTEST(week.weekday, "weekday");
    QTEST(toQDate(week.weekStart), "monday");
    QTEST(week.weekStartDayCount, "dayCount");
}

void TestWeekState::hoursDoNotMatter() {
    Biorhythm biorhythm = person({1981, 12, 25}, {2004, 3, 21});
    const Week week = weekOf(biorhythm);
    biorhythm.calculationDate += 0.75;
    QCOMPARE(weekOf(biorhythm), week);
}

void TestWeekState::stateAtItsLimits_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<DayClass>("state");
    const double above = 2;
    const double below = -2;
    QTest::newRow("0") << 0.0 << DayClass::critical;
    QTest::newRow("0.3") << 0.3 << DayClass::critical;
    QTest::newRow("above 0.3") << std::nextafter(0.3, above) << DayClass::stable;
    QTest::newRow("-0.3") << -0.3 << DayClass::critical;
    QTest::newRow("below -0.3") << std::nextafter(-0.3, below) << DayClass::stable;
    QTest::newRow("below 0.8") << std::nextafter(0.8, below) << DayClass::stable;
    QTest::newRow("0.8") << 0.8 << DayClass::optimal;
    QTest::newRow("1") << 1.0 << DayClass::optimal;
    QTest::newRow("-0.8") << -0.8 << DayClass::stable;
    QTest::newRow("-1") << -1.0 << DayClass::stable;
}

void TestWeekState::stateAtItsLimits() {
    QFETCH(double, value);
    QTEST(dayClass(value), "state");
}

void TestWeekState::valuesOfTheWeekOfTheBirth() {
    const auto physical = weekValues(0, WeekRow::physical);
    const auto emotional = weekValues(0, WeekRow::emotional);
    const auto intellectual = weekValues(0, WeekRow::intellectual);
    const auto mean = weekValues(0, WeekRow::mean);
    QCOMPARE(physical[0], 0.0);
    QCOMPARE(mean[0], 0.0);
    for (std::size_t i = 0; i < mean.size(); ++i) {
        const double later = 0.5 * static_cast<double>(i);
        QVERIFY(physical.at(i) == std::sin(0.27318196987737303 * later));
        QVERIFY(emotional.at(i) == std::sin(0.22439947525641357 * later));
        QVERIFY(intellectual.at(i) == std::sin(0.19039955476301756 * later));
        QVERIFY(mean.at(i) == (physical.at(i) + emotional.at(i) + intellectual.at(i)) / 3);
    }
    // A whole day is the value that the rest of the program has for it.
    QVERIFY(mean.at(6) == cycleMean(3));
}

void TestWeekState::valuesBeforeTheBirth() {
    // One day before the birth a cycle of 23 days is at its day 22.
    QVERIFY(weekValues(-1, WeekRow::physical)[0] == std::sin(0.27318196987737303 * 22));
    QCOMPARE(weekValues(-1, WeekRow::physical)[0], cycleValue(-1, Period::physical));
    for (const WeekRow row : weekRows) {
        constexpr std::int32_t allPeriods = 23 * 28 * 33;
        QCOMPARE(weekValues(-100, row), weekValues(allPeriods - 100, row));
    }
    QCOMPARE(weekValues(-46, WeekRow::physical), weekValues(0, WeekRow::physical));
}

void TestWeekState::labels() {
    QStringList labels;
    for (const WeekRow row : weekRows) {
        labels << rowLabel(row);
    }
    QCOMPARE(labels.join(u','), QStringLiteral("MEDIA,FISICO,EMOTIVO,INTELLETTIVO"));
}

void TestWeekState::rowsInWords() {
    // Born that Monday: the physical cycle starts at 0 and passes 0.3 in the middle of Tuesday.
    const Week week{
        .weekday = 3, .weekStart = toDateValue(QDate(2004, 3, 15)), .weekStartDayCount = 0};
    QCOMPARE(
        describeRow(week, WeekRow::physical, QLocale(u"it_IT"_s)),
        u"lunedì 15 marzo 2004: critico; martedì 16 marzo 2004: critico, poi stabile; "
        "mercoledì 17 marzo 2004: stabile (data di calcolo); giovedì 18 marzo 2004: stabile, poi "
        "ottimo; venerdì 19 marzo 2004: ottimo; sabato 20 marzo 2004: ottimo; domenica 21 marzo "
        "2004: ottimo"_s);
}

} // namespace quor::test
