#include "views/graph/GraphSeries.h"

#include "core/Cycles.h"
#include "core/Rounding.h"

#include <cmath>

namespace quor {

namespace {

std::vector<double> cycle(std::int32_t startDayCount, Period period, std::size_t days) {
    const std::int32_t first = phase(startDayCount, period);
    std::vector<double> values(days);
    for (std::size_t i = 0; i < days; ++i) {
        const std::int32_t position = first + static_cast<std::int32_t>(i);
        values[i] = std::sin(angleStep(period) * position);
    }
    return values;
}

Colour channel(double value) {
    return static_cast<Colour>(roundHalfEven((value + 10) * 255 / 20));
}

} // namespace

GraphSeries personSeries(std::int32_t startDayCount, std::int32_t daysAround) {
    const std::size_t days = 2 * static_cast<std::size_t>(daysAround) + 1;
    GraphSeries series;
    series.physical = cycle(startDayCount, Period::physical, days);
    series.emotional = cycle(startDayCount, Period::emotional, days);
    series.intellectual = cycle(startDayCount, Period::intellectual, days);
    series.mean.resize(days);
    for (std::size_t i = 0; i < days; ++i) {
        series.mean[i] =
            meanOfCycles(series.physical[i], series.emotional[i], series.intellectual[i]);
    }
    series.bars.resize(days - 1);
    for (std::size_t i = 0; i + 1 < days; ++i) {
        series.bars[i] =
            barColour(roundHalfEven(series.physical[i]), roundHalfEven(series.emotional[i]),
                      roundHalfEven(series.intellectual[i]));
    }
    return series;
}

GraphSeries systemSeries(const SystemMean& system, std::int32_t daysAround) {
    const std::size_t days = 2 * static_cast<std::size_t>(daysAround) + 1;
    GraphSeries series;
    const auto cycle = [&](Period period, std::vector<double>& values) {
        values.resize(days);
        system.cycle(period, -daysAround, values);
    };
    cycle(Period::physical, series.physical);
    cycle(Period::emotional, series.emotional);
    cycle(Period::intellectual, series.intellectual);
    series.mean.resize(days);
    system.mean(-daysAround, series.mean);
    series.bars.resize(days - 1);
    for (std::size_t i = 0; i + 1 < days; ++i) {
        series.bars[i] = barColour(series.physical[i], series.emotional[i], series.intellectual[i]);
    }
    return series;
}

Colour barColour(double physical, double emotional, double intellectual) {
    return channel(physical) | (channel(emotional) << 8) | (channel(intellectual) << 16);
}

} // namespace quor
