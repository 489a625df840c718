#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <optional>
#include <type_traits>

/// The three cycles and their mean.
///
/// The origin of every cycle is the day of birth: there (day count 0) it is 0 and rising. A day
/// count is the whole number of days since the birth and may be negative.
namespace quor {

/// The circle used wherever a cycle angle is formed. It has 14 decimals on purpose: results agree
/// to the last bit with those that were published with it.
inline constexpr double TWO_PI = 6.28318530717958;

/// The cycles, each by its period in days.
enum class Period : std::int32_t { physical = 23, emotional = 28, intellectual = 33 };

/// The order in which the curves and the rows of a view come: physical, emotional, intellectual.
inline constexpr std::array periods{Period::physical, Period::emotional, Period::intellectual};

[[nodiscard]] constexpr std::int32_t days(Period period) {
    return static_cast<std::int32_t>(period);
}

/// The angle, in radians, that a cycle covers in one day.
[[nodiscard]] constexpr double angleStep(Period period) {
    return TWO_PI / static_cast<double>(days(period));
}

/// The position in the cycle, in days. It keeps the sign of the day count: -5 for -5, not 18.
[[nodiscard]] constexpr std::int32_t phase(std::int32_t dayCount, Period period) {
    return dayCount % days(period);
}

/// The value of one cycle: sin(phase × angleStep), in [-1, 1], neither scaled nor rounded.
[[nodiscard]] double cycleValue(std::int32_t dayCount, Period period);

/// The mean of three cycle values of one day: ((physical + emotional) + intellectual) / 3, summed
/// in that order.
[[nodiscard]] constexpr double meanOfCycles(double physical, double emotional,
                                            double intellectual) {
    return ((physical + emotional) + intellectual) / 3.0;
}

/// The mean of the three cycles ("Media Energetica"), in [-1, 1].
[[nodiscard]] double cycleMean(std::int32_t dayCount);

/// The mean repeats after this many days, the least common multiple of the three periods, on either
/// side of day count 0: for negative day counts the remainders are negative too.
inline constexpr std::int32_t meanPeriod =
    days(Period::physical) * days(Period::emotional) * days(Period::intellectual);

/// A day count held in a wider or fractional type, as the functions above take it: rounded to the
/// nearest integer, ties to even. One beyond 32 bits is an overflow and gives nothing.
[[nodiscard]] std::optional<std::int32_t> toDayCount(double dayCount);
[[nodiscard]] std::optional<std::int32_t> toDayCount(std::int64_t dayCount);

/// A number that may not fit a day count and so has to be reduced first.
template<typename T>
concept WideDayCount =
    std::floating_point<T> || std::same_as<T, std::int64_t> || std::same_as<T, long long>;

/// The same for a day count of a wider type; nothing when it overflows.
template<WideDayCount T> [[nodiscard]] std::optional<double> cycleValue(T dayCount, Period period) {
    if (const auto reduced = toDayCount(dayCount)) {
        return cycleValue(*reduced, period);
    }
    return std::nullopt;
}

template<WideDayCount T> [[nodiscard]] std::optional<double> cycleMean(T dayCount) {
    if (const auto reduced = toDayCount(dayCount)) {
        return cycleMean(*reduced);
    }
    return std::nullopt;
}

} // namespace quor
