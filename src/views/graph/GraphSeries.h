#pragma once

#include "core/Biorhythm.h"
#include "core/SystemMean.h"

#include <cstdint>
#include <vector>

namespace quor {

/// What a graph draws: for each day of the span, first to last, the values in [-1, 1] of the three
/// cycles and their mean, and for each interval between two days the colour of its enhance bar.
struct GraphSeries {
    std::vector<double> physical;
    std::vector<double> emotional;
    std::vector<double> intellectual;
    std::vector<double> mean;
    std::vector<Colour> bars;
};

/// One person's values.
///
/// The angle of day i is angleStep × (phase of the first day + i): the phase is reduced once, at
/// the first day, and then runs on. The mean is ((physical + emotional) + intellectual) / 3 of a
/// day. A bar takes each cycle rounded to -1, 0 or 1.
/// @param startDayCount day count of the first day
/// @param daysAround 1 or more; the series has 2·daysAround + 1 days
[[nodiscard]] GraphSeries personSeries(std::int32_t startDayCount, std::int32_t daysAround);

/// The means over a system's members.
///
/// Every angle is formed from the reduced day count, and the mean is that of the members' means. A
/// bar takes the cycles' means as they are, so that its channels vary continuously.
/// @param system its offset 0 is the middle day
/// @param daysAround 1 or more; the series has 2·daysAround + 1 days
[[nodiscard]] GraphSeries systemSeries(const SystemMean& system, std::int32_t daysAround);

/// The colour of a bar: red, green and blue from the physical, emotional and intellectual value,
/// each channel from 115 for -1 over 128 for 0 to 140 for 1. Muted on purpose.
[[nodiscard]] Colour barColour(double physical, double emotional, double intellectual);

} // namespace quor
