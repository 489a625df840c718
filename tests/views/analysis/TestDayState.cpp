#include "views/analysis/TestDayState.h"

#include "core/Cycles.h"
#include "views/analysis/DayState.h"

#include <QTest>

#include <cmath>

namespace quor::test {

namespace {

constexpr std::int32_t knownDay = 8116; // 25/12/1981 to 15/03/2004

} // namespace

void TestDayState::valuesAreTheFormulas() {
    constexpr std::array<std::int32_t, 3> lengths{23, 28, 33};
    constexpr std::array steps{0.27318196987737303, 0.22439947525641357, 0.19039955476301756};
    for (const std::int32_t day : {0, 1, 7, 8116, 21251, -1, -40000, 3'000'000}) {
        const DayState state = dayState(day);
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            // To the last bit.
            QVERIFY(state.today.at(i) == std::sin(day % lengths.at(i) * steps.at(i)) * 10);
            QVERIFY(state.yesterday.at(i) ==
                    std::sin((day - 1) % lengths.at(i) * steps.at(i)) * 10);
        }
        QVERIFY(state.today.at(3) == cycleMean(day) * 10);
        QVERIFY(state.yesterday.at(3) == cycleMean(day - 1) * 10);
    }
}

void TestDayState::knownPerson() {
    const DayState state = dayState(knownDay);
    constexpr std::array shown{-7, -8, -4, -6};
    for (const StateItem item : stateItems) {
        QCOMPARE(shownValue(state.value(item)), shown.at(static_cast<std::size_t>(item)));
        QCOMPARE(state.trend(item), Trend::rising);
    }
}

void TestDayState::shownValueRoundsTiesToEven() {
    QCOMPARE(shownValue(2.5), 2);
    QCOMPARE(shownValue(3.5), 4);
    QCOMPARE(shownValue(-2.5), -2);
    QCOMPARE(shownValue(-3.5), -4);
    QCOMPARE(shownValue(9.5), 10);
    QCOMPARE(shownValue(9.49999), 9);
    QCOMPARE(shownValue(-0.4), 0);
}

void TestDayState::zeroCrossingIsZeroAndRising() {
    for (const StateItem item :
         {StateItem::physical, StateItem::emotional, StateItem::intellectual}) {
        const std::int32_t length = days(periods.at(static_cast<std::size_t>(item)));
        for (const std::int32_t cycles : {-3, -1, 0, 1, 500}) {
            const DayState state = dayState(cycles * length);
            QVERIFY(state.value(item) == 0.0);
            QVERIFY(!std::signbit(state.value(item)));
            QCOMPARE(shownValue(state.value(item)), 0);
            QCOMPARE(state.trend(item), Trend::rising);
        }
    }
    QVERIFY(dayState(0).value(StateItem::mean) == 0.0);
    QCOMPARE(dayState(0).trend(StateItem::mean), Trend::rising);
}

void TestDayState::extremesReachTen() {
    // A quarter and three quarters of 28 days are whole days.
    QCOMPARE(dayState(7).value(StateItem::emotional), 10.0);
    QCOMPARE(dayState(21).value(StateItem::emotional), -10.0);
    QCOMPARE(dayState(8).trend(StateItem::emotional), Trend::falling);
    QCOMPARE(dayState(22).trend(StateItem::emotional), Trend::rising);
    // Elsewhere the nearest day falls short of it, and shows it all the same.
    QVERIFY(dayState(6).value(StateItem::physical) < 10);
    QCOMPARE(shownValue(dayState(6).value(StateItem::physical)), 10);
    QCOMPARE(shownValue(dayState(25).value(StateItem::intellectual)), -10);
}

void TestDayState::negativeDayCountsAreMirrored() {
    for (std::int32_t day = 1; day <= 924; ++day) {
        const StateValues before = stateValues(-day);
        const StateValues after = stateValues(day);
        for (std::size_t i = 0; i < before.size(); ++i) {
            QVERIFY(before.at(i) == -after.at(i));
        }
    }
    // Twenty days before the birth of the emotional cycle: eight days into it, and falling.
    QVERIFY(dayState(-20).value(StateItem::emotional) > 0);
    QCOMPARE(dayState(-20).trend(StateItem::emotional), Trend::falling);
}

void TestDayState::trendIsFallingOnlyWhenLower() {
    QCOMPARE(trendBetween(1.0, 1.0), Trend::rising);
    QCOMPARE(trendBetween(1.0, 2.0), Trend::rising);
    QCOMPARE(trendBetween(2.0, 1.0), Trend::falling);
    // Far below what the boxes show.
    QCOMPARE(trendBetween(std::nextafter(5.0, 6.0), 5.0), Trend::falling);
    QCOMPARE(trendBetween(5.0, std::nextafter(5.0, 6.0)), Trend::rising);
    QCOMPARE(trendBetween(-10.0, 10.0), Trend::rising);
    // Two equal days in a state of its own making.
    const DayState still{.today = {1, 2, 3, 2}, .yesterday = {1, 2, 3, 2}};
    for (const StateItem item : stateItems) {
        QCOMPARE(still.trend(item), Trend::rising);
    }
}

void TestDayState::meanIsRoundedFromUnroundedValues() {
    // The fourteenth day shows -6, 0 and 5, whose mean would show 0; but the mean is -0.576.
    const DayState state = dayState(14);
    constexpr std::array shown{-6, 0, 5, -1};
    for (const StateItem item : stateItems) {
        QCOMPARE(shownValue(state.value(item)), shown.at(static_cast<std::size_t>(item)));
    }
    QCOMPARE(shownValue((-6 + 0 + 5) / 3.0), 0);
}

} // namespace quor::test
