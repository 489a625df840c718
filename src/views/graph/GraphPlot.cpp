#include "views/graph/GraphPlot.h"

#include "core/Rounding.h"

namespace quor {

int GraphPlot::y(double value) const {
    return toPixel(baseline - amplitude * value);
}

std::optional<std::int16_t> GraphPlot::dayAt(int x) const {
    if (x <= plotLeft || x >= right()) {
        return std::nullopt; // also every x when a day has no width
    }
    return toInt16(static_cast<double>(x - plotLeft) / dayWidth);
}

GraphPlot layOutGraph(QSize picture, std::int32_t daysAround) {
    const double width = picture.width();
    const double height = picture.height();
    GraphPlot plot;
    plot.daysAround = daysAround;
    plot.plotLeft = toPixel(width / 40);
    const int margin = toPixel(height / 40);
    plot.amplitude = toPixel((height - 2 * margin) / 2);
    plot.baseline = margin + plot.amplitude;
    plot.dayWidth = toPixel((width - 2 * plot.plotLeft) / (2.0 * daysAround));
    return plot;
}

} // namespace quor
