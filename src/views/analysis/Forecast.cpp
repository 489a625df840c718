#include "views/analysis/Forecast.h"

#include "core/Cycles.h"
#include "core/Rounding.h"

#include <algorithm>
#include <vector>

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

Forecast systemForecast(const SystemMean& system) {
    // Events are near as a rule: small blocks of days first, then the longest that costs no more.
    constexpr std::size_t firstBlock = 32;
    constexpr std::size_t growth = 4;
    // From the last birth on the sum repeats with the mean's period, and over a period its values
    // cancel out: there a change of sign comes, unless the system is so even that nothing but
    // rounding is left.
    const std::int32_t lastDay = system.lastBirth() + 2 * meanPeriod;

    Forecast forecast;
    double dayBefore = 0;
    system.mean(-1, {&dayBefore, 1});
    std::vector<double> block(firstBlock);
    std::int32_t day = 0;
    const auto searching = [&] {
        return (day < systemHorizon && !(forecast.maximum && forecast.minimum)) ||
               (day <= lastDay && !forecast.inversion);
    };
    while (searching()) {
        system.mean(day, block);
        for (const double value : block) {
            if (!forecast.inversion && value * dayBefore <= 0) {
                forecast.inversion = day;
            }
            dayBefore = value;
            const int shown = toTenScale(value);
            if (!forecast.maximum && shown == systemExtreme && day < systemHorizon) {
                forecast.maximum = day;
            }
            if (!forecast.minimum && shown == -systemExtreme && day < systemHorizon) {
                forecast.minimum = day;
            }
            ++day;
        }
        block.resize(std::min(growth * block.size(), DayTable::longestSlice));
    }
    return forecast;
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
