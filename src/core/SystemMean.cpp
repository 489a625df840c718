#include "core/SystemMean.h"

#include <algorithm>

namespace quor {

namespace {

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
    return static_cast<std::size_t>(day + static_cast<std::int32_t>(reach()));
}

std::vector<std::int32_t> memberDayCounts(const AppState& state, DateValue date) {
    std::vector<std::int32_t> counts;
    counts.reserve(static_cast<std::size_t>(state.systemCount));
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.systemCount); ++i) {
        counts.push_back(dayCount(state.systemMembers[i].birthDate, date));
    }
    return counts;
}

SystemMean::SystemMean(std::vector<std::int32_t> dayCounts)
    : m_dayCounts(std::move(dayCounts)) {}

void SystemMean::cycle(Period period, std::int32_t first, std::span<double> means) const {
    average(cycleTable(period), first, means);
}

void SystemMean::mean(std::int32_t first, std::span<double> means) const {
    average(meanTable(), first, means);
}

std::int32_t SystemMean::lastBirth() const {
    std::int32_t last = 0;
    for (const std::int32_t dayCount : m_dayCounts) {
        last = std::max(last, -dayCount);
    }
    return last;
}

void SystemMean::average(const DayTable& table, std::int32_t first, std::span<double> means) const {
    const auto members = static_cast<double>(m_dayCounts.size());
    std::ranges::fill(means, 0.0);
    while (!means.empty()) {
        const auto block = means.first(std::min(means.size(), DayTable::longestSlice));
        for (const std::int32_t dayCount : m_dayCounts) {
            const double* values = table.slice(dayCount + first, block.size()).data();
            for (double& sum : block) {
                sum += *values++;
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
