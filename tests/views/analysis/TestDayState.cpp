#include "views/analysis/TestDayState.h"

#include "core/Cycles.h"
#include "views/analysis/DayState.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

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

void TestDayState::systemIsTheSumOfItsMembersDivided() {
    const std::vector<std::int32_t> dayCounts{8116, -40, 0, 21251, 3'000'000, 8116, -9'999};
    std::array<double, 4> today{};
    std::array<double, 4> yesterday{};
    for (const std::int32_t day : dayCounts) {
        today[0] += std::sin(day % 23 * 0.27318196987737303) * 10;
        today[1] += std::sin(day % 28 * 0.22439947525641357) * 10;
        today[2] += std::sin(day % 33 * 0.19039955476301756) * 10;
        today[3] = today[3] + cycleMean(day) * 10;
        yesterday[0] += std::sin((day - 1) % 23 * 0.27318196987737303) * 10;
        yesterday[1] += std::sin((day - 1) % 28 * 0.22439947525641357) * 10;
        yesterday[2] += std::sin((day - 1) % 33 * 0.19039955476301756) * 10;
        yesterday[3] = yesterday[3] + cycleMean(day - 1) * 10;
    }
    const DayState state = systemDayState(dayCounts);
    for (std::size_t i = 0; i < today.size(); ++i) {
        // To the last bit.
        QVERIFY(state.today.at(i) == today.at(i) / 7.0);
        QVERIFY(state.yesterday.at(i) == yesterday.at(i) / 7.0);
    }
}

void TestDayState::systemOfOneIsItsMember() {
    for (std::int32_t day = -1000; day <= 1000; ++day) {
        QCOMPARE(systemDayState(std::array{day}), dayState(day));
    }
}

void TestDayState::halfAnEmotionalPeriodApartIsNoEmotion() {
    for (std::int32_t day = -100; day <= 30000; ++day) {
        const DayState state = systemDayState(std::array{day, day + 14});
        QVERIFY(std::abs(state.value(StateItem::emotional)) < 1e-13);
        QCOMPARE(shownValue(state.value(StateItem::emotional)), 0);
    }
    // Thirteen days apart they do not cancel out.
    QVERIFY(systemDayState(std::array{7, 20}).value(StateItem::emotional) > 0.1);
}

void TestDayState::orderOfMembersIsRounding() {
    std::vector<std::int32_t> dayCounts;
    for (std::int32_t i = 0; i < 100; ++i) {
        dayCounts.push_back(i * i * 7 - 20'000);
    }
    const DayState forwards = systemDayState(dayCounts);
    std::ranges::reverse(dayCounts);
    const DayState backwards = systemDayState(dayCounts);
    for (std::size_t i = 0; i < forwards.today.size(); ++i) {
        QVERIFY(std::abs(forwards.today.at(i) - backwards.today.at(i)) < 1e-13);
        QVERIFY(std::abs(forwards.yesterday.at(i) - backwards.yesterday.at(i)) < 1e-13);
    }
    // The mean is the cycles' mean.
    const StateValues& today = forwards.today;
    QVERIFY(std::abs((today[0] + today[1] + today[2]) / 3 - today[3]) < 1e-13);
}

void TestDayState::systemWithoutMembersIsZero() {
    QCOMPARE(systemDayState({}), DayState{});
}

void TestDayState::inWords() {
    QCOMPARE(trendText(StateItem::physical, Trend::rising), u"Stato fisico in salita"_s);
    QCOMPARE(trendText(StateItem::intellectual, Trend::falling),
             u"Stato intellettivo in discesa"_s);
    QCOMPARE(trendText(StateItem::mean, Trend::falling), u"Media in discesa"_s);
    const DayState state{.today = {-7.3, 2.5, 3.5, 10}, .yesterday = {-7.2, 2.5, 3, 11}};
    QCOMPARE(describeState(state), u"Fisico -7, in discesa; Emotivo 2, in salita; Intellettivo 4, "
                                   "in salita; Media 10, in discesa"_s);
}

} // namespace quor::test
