#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Drawing.h"
#include "views/graph/GraphPlot.h"
#include "views/graph/GraphSeries.h"

#include <QLocale>

#include <array>

namespace quor {

/// How a graph is drawn.
struct GraphStyle {
    ShowFlags show{};                  ///< by `GraphElement`
    std::array<Colour, 4> colours{};   ///< physical, emotional, intellectual, mean
    std::uint8_t dayIndexPosition = 0; ///< a byte that is no `DayIndexPosition` writes no numbers
    DateValue calculationDate = 0;
    int textHeight = 0; ///< pixels, of the picture's font
};

/// The graph, in its order: enhance bars, mean curve, the three cycles, zero line, day grid, day
/// numbers, the line of the calculation date, bottom and top border.
///
/// The mean is a solid curve two pixels wide. A cycle is drawn three times, shifted by one pixel up
/// and left, not at all, and by one pixel down and right: a thick, diagonally smeared stroke.
/// @param series 2·daysAround + 1 days of the plot
[[nodiscard]] Drawing drawGraph(const GraphSeries& series, const GraphPlot& plot,
                                const GraphStyle& style, const QLocale& locale = QLocale());

} // namespace quor
