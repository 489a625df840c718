#include "core/Cycles.h"

#include "core/Rounding.h"

#include <cmath>
#include <limits>

namespace quor {

double cycleValue(std::int32_t dayCount, Period period) {
    return std::sin(static_cast<double>(phase(dayCount, period)) * angleStep(period));
}

double cycleMean(std::int32_t dayCount) {
    const double emotional = cycleValue(dayCount, Period::emotional);
    const double intellectual = cycleValue(dayCount, Period::intellectual);
    const double physical = cycleValue(dayCount, Period::physical);
    return meanOfCycles(physical, emotional, intellectual);
}

std::optional<std::int32_t> toDayCount(double dayCount) {
    return toInt32(dayCount);
}

std::optional<std::int32_t> toDayCount(std::int64_t dayCount) {
    if (dayCount < std::numeric_limits<std::int32_t>::min() ||
        dayCount > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(dayCount);
}

} // namespace quor
