#include "core/SystemMean.h"

#include <algorithm>
#include <array>

namespace quor {

namespace {

/// So few days between two stretches that have to be added up are added up, too.
constexpr std::size_t worthCopying = 32;

const DayTable& cycleTable(Period period) {
    const auto make = [](Period each) {
        return DayTable(days(each), [each](std::int32_t day) { return cycleValue(day, each); });
    };
    static const std::array tables{make(periods[0]), make(periods[1]), make(periods[2])};
    return *std::next(tables.begin(), std::ranges::find(periods, period) - periods.begin());
}

const DayTable& meanTable() {
    static const DayTable table(meanPeriod, [](std::int32_t day) { return cycleMean(day); });
    return table;
}

/// Members whose values are added in one pass, so that a sum is read and written once for all.
constexpr std::size_t membersAtOnce = 4;

/// Days that the inner loop takes: known to the compiler, which can use whole vector registers.
constexpr std::size_t daysAtOnce = 32;

/// Adds the days of four slices to the sums, one slice after the other on each day.
///
/// The sums never overlap the slices, which are parts of a table. Only told so does the compiler
/// add several days with one instruction; the additions of a day keep their order.
void addSlices(double* __restrict sums, std::size_t days, const double* first, const double* second,
               const double* third, const double* fourth) {
    std::size_t day = 0;
    for (; day + daysAtOnce <= days; day += daysAtOnce) {
        for (std::size_t i = 0; i < daysAtOnce; ++i) {
            sums[day + i] =
                (((sums[day + i] + first[day + i]) + second[day + i]) + third[day + i]) +
                fourth[day + i];
        }
    }
    for (; day < days; ++day) {
        sums[day] = (((sums[day] + first[day]) + second[day]) + third[day]) + fourth[day];
    }
}

} // namespace

std::size_t DayTable::index(std::int32_t first, std::int32_t length) const {
    // Days before 0 repeat towards the past and days from 0 on towards the future; only a slice
    // that holds both has one place.
    std::int32_t day = first;
    if (first >= 0) {
        day = first % m_period;
    } else if (first + length <= 0) {
        // The last place whose slice ends before 0.
        day = (first + length) % m_period - length;
    }
    const std::int32_t place = day + static_cast<std::int32_t>(reach());
    return static_cast<std::size_t>(place);
}

std::vector<std::int32_t> memberDayCounts(const AppState& state, DateValue date) {
    std::vector<std::int32_t> counts;
    counts.reserve(state.members().size());
    for (const SystemMember& member : state.members()) {
        counts.push_back(dayCount(member.birthDate, date));
    }
    return counts;
}

SystemMean::SystemMean(std::vector<std::int32_t> dayCounts)
    : m_dayCounts(std::move(dayCounts)) {}

void SystemMean::cycle(Period period, std::int32_t first, std::span<double> means) const {
    repeat(cycleTable(period), first, means);
}

void SystemMean::mean(std::int32_t first, std::span<double> means) const {
    repeat(meanTable(), first, means);
}

std::int32_t SystemMean::lastBirth() const {
    std::int32_t last = 0;
    for (const std::int32_t dayCount : m_dayCounts) {
        last = std::max(last, -dayCount);
    }
    return last;
}

/// Averages the first period and the days that differ from it, and copies the others.
///
/// On a day that no birth parts from the one a period earlier the same values are added in the same
/// order, and the mean is the same to the last bit. After a birth the member's values come from
/// the other side of its table, so that a period has to be added up anew.
void SystemMean::repeat(const DayTable& table, std::int32_t first, std::span<double> means) const {
    const auto period = static_cast<std::size_t>(table.period());
    const std::size_t length = means.size();
    std::size_t done = std::min(period, length);
    average(table, first, means.first(done));
    if (done == length) {
        return;
    }

    const auto copyUpTo = [&](std::size_t end) {
        for (; done < end; ++done) {
            means[done] = means[done - period];
        }
    };
    const std::vector<bool> births = birthDays(first, length);
    auto birth = std::ranges::find(births, true);
    while (birth != births.end()) {
        // From the day after a birth until a period after the last one that follows closely.
        const auto begin = static_cast<std::size_t>(birth - births.begin()) + 1;
        std::size_t end = begin;
        while (birth != births.end() &&
               static_cast<std::size_t>(birth - births.begin()) <= end + worthCopying) {
            end = static_cast<std::size_t>(birth - births.begin()) + period;
            birth = std::find(std::next(birth), births.end(), true);
        }
        end = std::min(end, length);
        if (end > done) {
            copyUpTo(begin);
            average(table, first + static_cast<std::int32_t>(done),
                    means.subspan(done, end - done));
            done = end;
        }
    }
    copyUpTo(length);
}

/// For each of the days from an offset on, whether a member is born.
std::vector<bool> SystemMean::birthDays(std::int32_t first, std::size_t length) const {
    std::vector<bool> births(length);
    for (const std::int32_t dayCount : m_dayCounts) {
        const std::int64_t day = -std::int64_t{dayCount} - first;
        if (day >= 0 && day < std::ssize(births)) {
            births[static_cast<std::size_t>(day)] = true;
        }
    }
    return births;
}

void SystemMean::average(const DayTable& table, std::int32_t first, std::span<double> means) const {
    std::ranges::fill(means, 0.0);
    if (m_dayCounts.empty()) {
        return;
    }
    const auto members = static_cast<double>(m_dayCounts.size());
    while (!means.empty()) {
        const auto block = means.first(std::min(means.size(), DayTable::longestSlice));
        const auto values = [&](std::int32_t dayCount) {
            return table.slice(dayCount + first, block.size()).data();
        };
        std::span<const std::int32_t> rest = m_dayCounts;
        for (; rest.size() >= membersAtOnce; rest = rest.subspan(membersAtOnce)) {
            addSlices(block.data(), block.size(), values(rest[0]), values(rest[1]), values(rest[2]),
                      values(rest[3]));
        }
        for (const std::int32_t dayCount : rest) {
            const double* value = values(dayCount);
            for (double& sum : block) {
                sum += *value++;
            }
        }
        for (double& sum : block) {
            sum /= members;
        }
        first += static_cast<std::int32_t>(block.size());
        means = means.subspan(block.size());
    }
}

} // namespace quor
