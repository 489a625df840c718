#include "views/graph/WeekPlot.h"

#include "core/Rounding.h"

#include <algorithm>

namespace quor {

namespace {

constexpr double twipsPerPixel = 1440.0 / 96.0;
constexpr double reserve = 200 / twipsPerPixel;

/// Pixels between two texts that are read as two.
constexpr int textGap = 4;

} // namespace

int WeekPlot::x(double days) const {
    return toPixel(weekLeft + days * cellWidth);
}

int WeekPlot::y(double value) const {
    return toPixel(weekBaseline - weekAmplitude * value);
}

WeekPlot layOutWeek(QSize picture) {
    const double width = picture.width();
    const double height = picture.height();
    WeekPlot plot;
    plot.picture = picture;
    plot.weekLeft = toPixel(width / 40);
    const int margin = toPixel(height / 40);
    plot.weekAmplitude = std::max(0, toPixel((height - 2 * margin) / 2 - reserve));
    plot.weekBaseline = margin + plot.weekAmplitude;
    plot.cellWidth = std::max(0, toPixel((width - 2 * plot.weekLeft - reserve) / daysInWeek));
    return plot;
}

int labelLeft(const WeekPlot& plot, int labelWidth) {
    return toPixel((plot.picture.width() - labelWidth) / 2.0);
}

bool textsFit(const WeekPlot& plot, const WeekTextSizes& sizes) {
    if (plot.bottom() + sizes.height > plot.picture.height()) {
        return false;
    }
    const int labelBegin = labelLeft(plot, sizes.label);
    const int labelEnd = labelBegin + sizes.label;
    int day = 0;
    for (const int name : sizes.names) {
        const int begin = plot.x(day);
        const int end = begin + name;
        const bool clearOfLabel = end + textGap <= labelBegin || begin >= labelEnd + textGap;
        if (!clearOfLabel || name + textGap > plot.cellWidth) {
            return false;
        }
        ++day;
    }
    return true;
}

} // namespace quor
