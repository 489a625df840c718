#include "views/analysis/Forecast.h"

#include "core/Cycles.h"
#include "core/Rounding.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quor {

std::optional<std::int32_t> findInversion(const MeanByDay& mean, DayRange range) {
    double dayBefore = mean(range.first - 1);
    for (std::int32_t day = range.first; day <= range.last; ++day) {
        const double value = mean(day);
        if (value * dayBefore <= 0) {
            return day;
        }
        dayBefore = value;
    }
    return std::nullopt;
}

std::optional<std::int32_t> findTenScale(const MeanByDay& mean, int target, DayRange range) {
    for (std::int32_t day = range.first; day <= range.last; ++day) {
        if (toTenScale(mean(day)) == target) {
            return day;
        }
    }
    return std::nullopt;
}

Forecast personForecast(std::int32_t dayCount) {
    const MeanByDay mean = [dayCount](std::int32_t day) { return cycleMean(dayCount + day); };
    constexpr DayRange inversions{.first = 1, .last = longestWaitForInversion};
    constexpr DayRange extremes{.first = 1, .last = longestWaitForExtreme};
    return {.inversion = findInversion(mean, inversions),
            .maximum = findTenScale(mean, personExtreme, extremes),
            .minimum = findTenScale(mean, -personExtreme, extremes)};
}

Forecast findSystemEvents(const MeansByDay& means, std::int32_t lastDay) {
    // Events are near as a rule: small blocks of days first, then the longest that costs no more.
    constexpr std::int32_t firstBlock = 32;
    constexpr std::int32_t growth = 4;
    constexpr auto longestBlock = static_cast<std::int32_t>(DayTable::longestSlice);
    std::array<double, DayTable::longestSlice> room{};

    Forecast forecast;
    const auto observe = [&](std::int32_t day, double dayBefore, double value) {
        if (!forecast.inversion && day <= lastDay && value * dayBefore <= 0) {
            forecast.inversion = day;
        }
        if (day < systemHorizon) {
            const int shown = toTenScale(value);
            if (!forecast.maximum && shown == systemExtreme) {
                forecast.maximum = day;
            }
            if (!forecast.minimum && shown == -systemExtreme) {
                forecast.minimum = day;
            }
        }
    };
    /// The first day that need not be tried any more.
    const auto end = [&] {
        const bool extremes = forecast.maximum && forecast.minimum;
        return std::max(extremes ? 0 : systemHorizon, forecast.inversion ? 0 : lastDay + 1);
    };

    double dayBefore = 0;
    means(-1, {&dayBefore, 1});
    std::int32_t length = firstBlock;
    for (std::int32_t day = 0; day < end(); length = std::min(growth * length, longestBlock)) {
        const auto block =
            std::span(room).first(static_cast<std::size_t>(std::min(length, end() - day)));
        means(day, block);
        for (const double value : block) {
            observe(day++, dayBefore, value);
            dayBefore = value;
        }
    }
    return forecast;
}

Forecast systemForecast(const SystemMean& system) {
    const MeansByDay means = [&system](std::int32_t first, std::span<double> values) {
        system.mean(first, values);
    };
    // From the last birth on the sum repeats with the mean's period, to the last bit.
    return findSystemEvents(means, system.lastBirth() + meanPeriod);
}

std::array<ForecastRow, 3> forecastRows(const Forecast& forecast, DateValue calculationDate,
                                        DateText dateText, const QLocale& locale) {
    // Whole days: a time of day in the record must not carry an event into another day.
    const auto startDay = static_cast<DateValue>(dayNumber(calculationDate));
    const auto row = [&](std::optional<std::int32_t> days) -> ForecastRow {
        if (!days) {
            return {.date = u"Mai"_s, .days = u"Mai"_s};
        }
        return {.date = dateText(startDay + *days, locale), .days = QString::number(*days)};
    };
    return {row(forecast.inversion), row(forecast.maximum), row(forecast.minimum)};
}

} // namespace quor
