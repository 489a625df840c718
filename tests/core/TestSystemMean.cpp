#include "core/TestSystemMean.h"

#include "core/SystemMean.h"

#include <algorithm>
#include <bit>
#include <random>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr auto longest = static_cast<std::int32_t>(DayTable::longestSlice);

/// The definition: the members' values added in their order, divided by their number.
template<typename Value>
double directMean(const std::vector<std::int32_t>& dayCounts, std::int32_t offset, Value value) {
    double sum = 0;
    for (const std::int32_t dayCount : dayCounts) {
        sum += value(dayCount + offset);
    }
    return sum / static_cast<double>(dayCounts.size());
}

bool sameBits(double left, double right) {
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// The first of consecutive days on which a mean differs in any bit from the direct sum, or -1.
template<typename Value>
std::ptrdiff_t firstDifference(const std::vector<double>& means,
                               const std::vector<std::int32_t>& dayCounts, std::int32_t first,
                               Value value) {
    std::int32_t offset = first;
    const auto found = std::ranges::find_if(means, [&](double mean) {
        return !sameBits(mean, directMean(dayCounts, offset++, value));
    });
    return found == means.end() ? -1 : found - means.begin();
}

} // namespace

void TestSystemMean::slicesHoldTheFunctionsValues_data() {
    QTest::addColumn<int>("period");
    QTest::newRow("23") << 23;
    QTest::newRow("33") << 33;
    QTest::newRow("21252") << 21252;
}

/// Every remainder on both sides of 0 and every way of crossing it, with short and longest slices.
void TestSystemMean::slicesHoldTheFunctionsValues() {
    QFETCH(const int, period);
    const auto remainder = [period](std::int32_t day) { return static_cast<double>(day % period); };
    const DayTable table(period, remainder);
    const std::int32_t step = period > 1000 ? 97 : 1;
    for (const std::int32_t length : {1, 2, 50, longest - 1, longest}) {
        for (std::int32_t first = -2 * period - longest; first < 2 * period; first += step) {
            const auto slice = table.slice(first, static_cast<std::size_t>(length));
            QCOMPARE(slice.size(), static_cast<std::size_t>(length));
            for (const std::int32_t i : {0, length / 2, length - 1}) {
                QCOMPARE(slice[static_cast<std::size_t>(i)], remainder(first + i));
            }
        }
    }
}

void TestSystemMean::equalsTheDirectSumsToTheLastBit_data() {
    QTest::addColumn<int>("members");
    QTest::addColumn<int>("earliest");
    QTest::addColumn<int>("latest");
    QTest::addColumn<int>("days");
    QTest::newRow("one member") << 1 << 9000 << 9000 << 3000;
    for (const int members : {2, 3, 4, 5, 8, 33}) { // added in groups, and some left over
        QTest::addRow("%d members", members) << members << -30000 << 40000 << 2100;
    }
    QTest::newRow("a family") << 7 << 2000 << 40000 << 5000;
    QTest::newRow("births still to come") << 9 << -90000 << -30000 << 5000;
    QTest::newRow("births within the span") << 40 << -4000 << 1000 << 6000;
    QTest::newRow("far off") << 5 << -3'000'000 << 3'000'000 << 500;
}

void TestSystemMean::equalsTheDirectSumsToTheLastBit() {
    QFETCH(const int, members);
    QFETCH(const int, earliest);
    QFETCH(const int, latest);
    QFETCH(const int, days);
    std::mt19937 random(20260101); // NOLINT: the same systems in every run
    std::uniform_int_distribution<std::int32_t> distribution(earliest, latest);
    std::vector<std::int32_t> dayCounts(static_cast<std::size_t>(members));
    for (std::int32_t& dayCount : dayCounts) {
        dayCount = distribution(random);
    }
    const SystemMean system(dayCounts);

    for (const std::int32_t first : {-1, 0, 37}) {
        std::vector<double> means(static_cast<std::size_t>(days));
        const auto verify = [&](auto value) {
            for (std::int32_t i = 0; i < days; ++i) {
                const double mean = means[static_cast<std::size_t>(i)];
                const double direct = directMean(dayCounts, first + i, value);
                QVERIFY2(sameBits(mean, direct),
                         qPrintable(u"offset %1: %2, not %3"_s.arg(
                             QString::number(first + i), QString::number(mean, 'g', 17),
                             QString::number(direct, 'g', 17))));
            }
        };
        for (const Period period : periods) {
            system.cycle(period, first, means);
            verify([period](std::int32_t day) { return cycleValue(day, period); });
        }
        system.mean(first, means);
        verify([](std::int32_t day) { return cycleMean(day); });
    }
}

/// Days are copied from a period earlier unless a birth lies between: one birth on each day in and
/// around a span, alone and with a second one some days later.
void TestSystemMean::birthsOnEveryDayOfASpan() {
    constexpr std::int32_t first = -90;
    std::vector<double> means(180);
    for (std::int32_t birth = first - 40; birth < first + 190; ++birth) {
        for (const std::int32_t later : {0, 1, 22, 23, 24, 33, 60, 75}) {
            const std::vector<std::int32_t> dayCounts{9000, -birth, 20'411, -birth - later, -400};
            const SystemMean system(dayCounts);
            for (const Period period : periods) {
                system.cycle(period, first, means);
                const auto difference =
                    firstDifference(means, dayCounts, first,
                                    [period](std::int32_t day) { return cycleValue(day, period); });
                QVERIFY2(difference == -1,
                         qPrintable(u"births %1 and %2, period %3, day %4"_s.arg(birth)
                                        .arg(birth + later)
                                        .arg(quor::days(period))
                                        .arg(difference)));
            }
        }
    }
}

void TestSystemMean::longSpansRepeatToTheLastBit_data() {
    QTest::addColumn<std::vector<std::int32_t>>("dayCounts");
    using DayCounts = std::vector<std::int32_t>;
    QTest::newRow("births before") << DayCounts{40'000, 33'000, 61'234, 39'999};
    QTest::newRow("births after") << DayCounts{-40'000, -33'000, -61'234};
    QTest::newRow("births early and late") << DayCounts{32'700, 40'000, -32'000, -50'000};
    QTest::newRow("births in the middle") << DayCounts{40'000, 5, -10'000};
    QTest::newRow("births at the ends") << DayCounts{32'787, -32'787, 11'535, -11'535};
}

/// The longest span of a graph, more than three times as long as the mean's period.
void TestSystemMean::longSpansRepeatToTheLastBit() {
    QFETCH(const std::vector<std::int32_t>, dayCounts);
    constexpr std::int32_t first = -32'787;
    std::vector<double> means(-2 * first + 1);
    const SystemMean system(dayCounts);
    for (const Period period : periods) {
        system.cycle(period, first, means);
        QCOMPARE(firstDifference(means, dayCounts, first,
                                 [period](std::int32_t day) { return cycleValue(day, period); }),
                 std::ptrdiff_t{-1});
    }
    system.mean(first, means);
    QCOMPARE(
        firstDifference(means, dayCounts, first, [](std::int32_t day) { return cycleMean(day); }),
        std::ptrdiff_t{-1});
}

void TestSystemMean::dayCountsFollowTheMembersOrder() {
    AppState state;
    state.systemMembers = {{u"Ada"_s, 100}, {u"Bice"_s, 90.75}, {u"Carla"_s, 120}, {u"no"_s, 1}};
    state.systemCount = 3;
    QCOMPARE(memberDayCounts(state, 110.5), (std::vector<std::int32_t>{10, 20, -10}));
    state.systemCount = 0;
    QVERIFY(memberDayCounts(state, 110).empty());
}

void TestSystemMean::lastBirthIsTheLatestToCome() {
    QCOMPARE(SystemMean({10, -5, -70, 3, -69}).lastBirth(), 70);
    QCOMPARE(SystemMean({10, 0, 3}).lastBirth(), 0);
    QCOMPARE(SystemMean({10, 3}).lastBirth(), 0);
    QCOMPARE(SystemMean({-1}).lastBirth(), 1);
    QCOMPARE(SystemMean({}).lastBirth(), 0);
    // From there on the means repeat, to the last bit.
    const SystemMean system({-300, 9000, -12, 77, -5});
    std::vector<double> means(1000);
    std::vector<double> later(1000);
    system.mean(system.lastBirth(), means);
    system.mean(system.lastBirth() + meanPeriod, later);
    QVERIFY(std::ranges::equal(means, later, sameBits));
}

void TestSystemMean::withoutMembersIsZero() {
    std::vector<double> means{1, 2, 3};
    SystemMean({}).mean(-1, means);
    QCOMPARE(means, (std::vector<double>{0, 0, 0}));
}

} // namespace quor::test
