#include "core/Rounding.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quor {

namespace {

template<typename Integer> std::optional<Integer> toInteger(double value) {
    const double rounded = roundHalfEven(value);
    // Both bounds of a 16- or 32-bit type are exact doubles; NaN fails the comparison.
    const bool fits = rounded >= double{std::numeric_limits<Integer>::min()} &&
                      rounded <= double{std::numeric_limits<Integer>::max()};
    if (!fits) {
        return std::nullopt;
    }
    return static_cast<Integer>(rounded);
}

} // namespace

double roundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) {
        return below;
    }
    if (rest > 0.5) {
        return below + 1.0;
    }
    if (rest == 0.5) {
        return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
    }
    return value; // infinite or NaN
}

std::optional<std::int16_t> toInt16(double value) {
    return toInteger<std::int16_t>(value);
}

std::optional<std::int32_t> toInt32(double value) {
    return toInteger<std::int32_t>(value);
}

int toPixel(double value) {
    constexpr double bound = 1 << 30;
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<int>(std::clamp(roundHalfEven(value), -bound, bound));
}

int toTenScale(double value) {
    return static_cast<int>(roundHalfEven(value * 10.0));
}

} // namespace quor
