#pragma once

#include <QSize>

#include <cstdint>
#include <optional>

namespace quor {

/// Where a graph lies in its picture, in pixels, and both mappings between days and pixels.
///
/// Day 0 is the first day shown and day 2·daysAround the last. Very many days on a narrow picture
/// leave a day no width: the whole span then lies on one pixel column.
struct GraphPlot {
    int plotLeft = 0;            ///< x of day 0
    int baseline = 0;            ///< y of value 0
    int amplitude = 0;           ///< pixels for value 1
    int dayWidth = 0;            ///< pixels between two days, 0 or more
    std::int32_t daysAround = 1; ///< days on each side of the calculation date, 1 or more

    [[nodiscard]] std::int32_t lastDay() const { return 2 * daysAround; }
    [[nodiscard]] int x(std::int32_t day) const { return plotLeft + day * dayWidth; }
    [[nodiscard]] int right() const { return x(lastDay()); }
    [[nodiscard]] int top() const { return baseline - amplitude; }
    [[nodiscard]] int bottom() const { return baseline + amplitude; }

    /// @param value in [-1, 1]
    [[nodiscard]] int y(double value) const;

    /// The day nearest to a pixel column; halfway between two days it is the even one. Nothing on
    /// or beyond either end of the span.
    [[nodiscard]] std::optional<std::int16_t> dayAt(int x) const;

    friend bool operator==(const GraphPlot&, const GraphPlot&) = default;
};

/// The plot in a picture: a margin of a fortieth of the width and of the height all round.
/// @param picture outer size in pixels
/// @param daysAround 1 or more
[[nodiscard]] GraphPlot layOutGraph(QSize picture, std::int32_t daysAround);

} // namespace quor
