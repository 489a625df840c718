#pragma once

#include "core/Dates.h"
#include "core/SystemMean.h"

#include <QLocale>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

/// Coming events of the mean value, found by trying one day after the other.
namespace quor {

/// The mean, in [-1, 1], of a day given by its distance in days from the calculation date.
using MeanByDay = std::function<double(std::int32_t)>;

/// The days that a search tries, by their distance from the calculation date; both ends included.
struct DayRange {
    std::int32_t first = 0;
    std::int32_t last = 0;
};

/// The first day on which the mean is zero, or has another sign than the day before, or comes after
/// a day on which it was zero. The day before the range counts as the first day's predecessor.
[[nodiscard]] std::optional<std::int32_t> findInversion(const MeanByDay& mean, DayRange range);

/// The first day whose mean, shown on the scale -10..10, is exactly the target.
[[nodiscard]] std::optional<std::int32_t> findTenScale(const MeanByDay& mean, int target,
                                                       DayRange range);

/// Bounds for the searches of one person's forecast, in days.
///
/// All day counts were tried: within one period the mean shows 10 on 63 days and -10 on 63 days,
/// and from no day on does it take longer than this to come to the next one. A negative day count
/// adds nothing to that: its remainders are negative, the sine is odd and so are sum and division,
/// therefore mean(-d) is exactly -mean(d); before the birth maxima and minima change places, the
/// waits are those of the same period walked backwards, and across the birth the longest ones stay
/// below the bounds. The tests try two periods on both sides again.
inline constexpr std::int32_t longestWaitForInversion = 26;
inline constexpr std::int32_t longestWaitForExtreme = 1286;

/// Days from the calculation date to the next events; nothing where none was found.
struct Forecast {
    std::optional<std::int32_t> inversion;
    std::optional<std::int32_t> maximum;
    std::optional<std::int32_t> minimum;

    friend bool operator==(const Forecast&, const Forecast&) = default;
};

/// The value that one person's forecast takes for a maximum; its negative is a minimum.
inline constexpr int personExtreme = 10;

/// One person's forecast. It starts on the day after the calculation date and finds all three.
/// @param dayCount day count of the calculation date, at least 2000 days from the bounds of its
/// type (dates up to the year 9999 stay below four million)
[[nodiscard]] Forecast personForecast(std::int32_t dayCount);

/// The value that a system's forecast takes for a maximum; its negative is a minimum.
inline constexpr int systemExtreme = 9;

/// A system's maximum or minimum on this day or later counts as none.
inline constexpr std::int32_t systemHorizon = 22'000;

/// The means, in [-1, 1], of consecutive days: that of the day `first`, as an offset from the
/// calculation date, and those of the days after it, as many as there is room for.
using MeansByDay = std::function<void(std::int32_t first, std::span<double> means)>;

/// Forecast of a mean with a system's extremes and horizon, from day 0 on. Unlike a person's
/// forecast it tries the calculation date itself.
/// @param lastDay the last day that is tried for an inversion; it may lie beyond the horizon
[[nodiscard]] Forecast findSystemEvents(const MeansByDay& means, std::int32_t lastDay);

/// A system's forecast. An inversion is looked for until the sum over all members has repeated
/// itself, from where on none can come that has not been tried. (Over a period the values cancel
/// out, and so there always is one, unless the members are spread so evenly that nothing but
/// rounding is left.)
[[nodiscard]] Forecast systemForecast(const SystemMean& system);

/// An event as it is shown.
struct ForecastRow {
    QString date;
    QString days;

    friend bool operator==(const ForecastRow&, const ForecastRow&) = default;
};

/// How a date is written: `longDate` or `shortDate`.
using DateText = QString (*)(DateValue date, const QLocale& locale);

/// The rows inversion, maximum and minimum. An event that was not found is "Mai" in both places.
[[nodiscard]] std::array<ForecastRow, 3> forecastRows(const Forecast& forecast,
                                                      DateValue calculationDate, DateText dateText,
                                                      const QLocale& locale = QLocale());

} // namespace quor
