#pragma once

#include "core/Biorhythm.h"
#include "core/Cycles.h"

#include <cstdint>
#include <span>
#include <vector>

/// The mean of a cycle, or of the three cycles' mean, over the members of a system.
///
/// A value is the sum over the members, in their order and starting from 0, divided by their
/// number: to the last bit what adding `cycleValue` or `cycleMean` member by member gives. It is
/// reached without a sine for each member and day, since the values of consecutive days lie side by
/// side in a table.
namespace quor {

/// Values of consecutive day counts, laid out so that any run of days is one contiguous slice.
///
/// A function of the remainder of a day count repeats on either side of 0, and since the remainder
/// keeps the sign of the day count the two sides differ. The table holds one period of each side
/// and, at both ends, as many days more as a slice is long.
class DayTable {
  public:
    /// @param period days after which the function repeats, separately for both signs
    /// @param value the function
    template<typename Function>
    DayTable(std::int32_t period, Function value)
        : m_period(period) {
        m_values.reserve(2 * reach());
        for (std::int32_t day = -static_cast<std::int32_t>(reach());
             day < static_cast<std::int32_t>(reach()); ++day) {
            m_values.push_back(value(day));
        }
    }

    [[nodiscard]] std::int32_t period() const { return m_period; }

    /// Days in a slice, at most.
    static constexpr std::size_t longestSlice = 2048;

    /// The values of `length` days from the given day count on.
    /// @param length 1 to longestSlice
    /// @param first so far within the range of its type that `first + length` is, too
    [[nodiscard]] std::span<const double> slice(std::int32_t first, std::size_t length) const {
        return {m_values.data() + index(first, static_cast<std::int32_t>(length)), length};
    }

  private:
    [[nodiscard]] std::size_t reach() const {
        return static_cast<std::size_t>(m_period) + longestSlice;
    }

    [[nodiscard]] std::size_t index(std::int32_t first, std::int32_t length) const;

    std::int32_t m_period;
    std::vector<double> m_values; ///< from day count -reach to reach - 1
};

/// Whole days from the birth of each member to a date, in the members' order.
[[nodiscard]] std::vector<std::int32_t> memberDayCounts(const AppState& state, DateValue date);

/// The means of a system. Those of one without members are 0.
class SystemMean {
  public:
    /// @param dayCounts of each member, on the day that the offsets below count from
    explicit SystemMean(std::vector<std::int32_t> dayCounts);

    [[nodiscard]] std::size_t members() const { return m_dayCounts.size(); }

    /// The means, in [-1, 1], of one cycle on consecutive days.
    /// @param first the first day, as an offset in days; may be negative
    void cycle(Period period, std::int32_t first, std::span<double> means) const;

    /// The same for the mean of the three cycles.
    void mean(std::int32_t first, std::span<double> means) const;

    /// The offset of the last member's birth; 0 where all births are past.
    [[nodiscard]] std::int32_t lastBirth() const;

  private:
    void repeat(const DayTable& table, std::int32_t first, std::span<double> means) const;
    [[nodiscard]] std::vector<bool> birthDays(std::int32_t first, std::size_t length) const;
    void average(const DayTable& table, std::int32_t first, std::span<double> means) const;

    std::vector<std::int32_t> m_dayCounts;
};

} // namespace quor
