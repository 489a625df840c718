#include "views/analysis/CompatibilityPlot.h"

#include "core/Rounding.h"

#include <algorithm>

namespace quor {

namespace {

/// Room beside the plot, for the ends of its thick curves too.
int marginFor(int textHeight) {
    return std::max(4, textHeight / 2);
}

} // namespace

int CompatibilityPlot::x(int day) const {
    return toPixel(x0 + day * dx);
}

int CompatibilityPlot::y(double value) const {
    return toPixel(yMid - amplitude * value);
}

CompatibilityPlot layOutCompatibility(QSize panel, int textHeight) {
    const int margin = marginFor(textHeight);
    const int plotTop = textHeight + margin;
    // The last row and column of pixels belong to the plot.
    const int plotWidth = std::max(0, panel.width() - 1 - 2 * margin);
    const int plotHeight = std::max(0, panel.height() - 1 - margin - plotTop);
    CompatibilityPlot plot;
    plot.x0 = margin;
    plot.dx = static_cast<double>(plotWidth) / CompatibilityPlot::lastDay();
    plot.amplitude = plotHeight / 2;
    plot.yMid = plotTop + plot.amplitude;
    plot.textTopLeft = {margin, margin / 2};
    return plot;
}

QSize smallestCompatibilityPanel(int textWidth, int textHeight) {
    const int margin = marginFor(textHeight);
    return {textWidth + 2 * margin, 7 * textHeight};
}

} // namespace quor
