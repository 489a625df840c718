#pragma once

#include "core/SystemMean.h"
#include "views/analysis/DayState.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quor {

/// The values, in [-1, 1] and not rounded, of consecutive days: of one person, or the means of a
/// system's members. To the last bit those of `cycleValue`, `cycleMean` and `SystemMean`.
class DaySeries {
  public:
    /// Days whose values are at hand at once.
    static constexpr std::size_t blockLength = DayTable::longestSlice;
    using Column = std::array<double, blockLength>;
    /// The columns by `StateItem`.
    using Block = std::array<Column, stateItems.size()>;

    /// @param dayCounts of each member, or of the one person, on day 0
    explicit DaySeries(std::vector<std::int32_t> dayCounts);

    /// The values from a day on, at most `blockLength` of them. The block stays until the next
    /// call.
    [[nodiscard]] const Block& values(std::int32_t first, std::size_t length);

  private:
    SystemMean m_mean;
    Block m_block{};
};

} // namespace quor
