#include "views/analysis/StatePlot.h"

#include "core/Rounding.h"
#include "views/analysis/DayState.h"

#include <algorithm>

namespace quor {

namespace {

constexpr int columns = static_cast<int>(stateItems.size());

} // namespace

int StatePlot::right() const {
    return left + columns * columnWidth;
}

float StatePlot::unit() const {
    return static_cast<float>(zeroLine - topLine) / 10.0F;
}

BarExtent StatePlot::extent(double value) const {
    const double valueUnit = unit();
    if (value < 0) {
        return {.height = -value * valueUnit, .top = static_cast<double>(zeroLine)};
    }
    const double height = value * valueUnit;
    return {.height = height, .top = zeroLine - height};
}

QRect StatePlot::bar(std::size_t column, double value) const {
    const int height = toPixel(extent(value).height);
    // From the rounded height, so that a bar always ends exactly at the zero line.
    const int top = value < 0 ? zeroLine : zeroLine - height;
    return {columnLeft(column) + (columnWidth - barWidth) / 2, top, barWidth, height};
}

QRect StatePlot::arrow(std::size_t column) const {
    const int x = columnLeft(column) + (columnWidth + barWidth) / 2 + gap;
    return {x, zeroLine - gap - arrowSize, arrowSize, arrowSize};
}

QRect StatePlot::caption(std::size_t column) const {
    return {columnLeft(column), captionTop, columnWidth, captionHeight};
}

int StatePlot::columnLeft(std::size_t column) const {
    return left + static_cast<int>(column) * columnWidth;
}

StatePlot layOutState(const StatePictureSizes& sizes) {
    StatePlot plot;
    plot.gap = sizes.gap;
    plot.arrowSize = sizes.arrowSize;
    plot.left = sizes.scaleWidth + 2 * sizes.gap;
    plot.columnWidth = std::max(0, sizes.width - plot.left - sizes.gap) / columns;
    // What an arrow takes to the right of a bar is also left free to its left.
    const int beside = sizes.arrowSize + 2 * sizes.gap;
    plot.barWidth = std::clamp(plot.columnWidth - 2 * beside, 0, 2 * sizes.arrowSize);

    // The numbers are centred on the lines, so half of one stands out above and below.
    const int overhang = (sizes.textHeight + 1) / 2;
    const int room = sizes.height - 2 * overhang - sizes.textHeight - 2 * sizes.gap;
    const int amplitude = std::max(0, room) / 2;
    plot.topLine = overhang + sizes.gap;
    plot.zeroLine = plot.topLine + amplitude;
    plot.bottomLine = plot.zeroLine + amplitude;
    plot.captionTop = plot.bottomLine + overhang;
    plot.captionHeight = sizes.textHeight;
    return plot;
}

} // namespace quor
