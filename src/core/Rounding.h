#pragma once

#include <cstdint>
#include <optional>

/// Conversions of computed doubles to integers.
///
/// They all round to the nearest integer and a tie to the even one, whatever the rounding mode of
/// the processor; none truncates and none wraps.
namespace quor {

/// The nearest integer as a double, ties to even. Infinities and NaN come back as they are.
[[nodiscard]] double roundHalfEven(double value);

/// The nearest integer; a value beyond the range of the type (or NaN) gives nothing.
[[nodiscard]] std::optional<std::int16_t> toInt16(double value);
[[nodiscard]] std::optional<std::int32_t> toInt32(double value);

/// A coordinate in pixels. One beyond ±2^30, which no picture reaches, is moved to that bound so
/// that sums of two coordinates never overflow; NaN becomes 0.
[[nodiscard]] int toPixel(double value);

/// A cycle value on the scale that is shown to the user.
/// @param value in [-1, 1]
/// @return value × 10 rounded, in -10..10
[[nodiscard]] int toTenScale(double value);

} // namespace quor
