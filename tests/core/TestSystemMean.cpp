#include "core/TestSystemMean.h"

#include "core/SystemMean.h"

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

void TestSystemMean::dayCountsFollowTheMembersOrder() {
    AppState state;
    state.systemMembers = {{u"Ada"_s, 100}, {u"Bice"_s, 90.75}, {u"Carla"_s, 120}, {u"no"_s, 1}};
    state.systemCount = 3;
    QCOMPARE(memberDayCounts(state, 110.5), (std::vector<std::int32_t>{10, 20, -10}));
    state.systemCount = 0;
    QVERIFY(memberDayCounts(state, 110).empty());
}

} // namespace quor::test
