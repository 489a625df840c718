#include "views/graph/WeekPlot.h"

#include "core/Rounding.h"
#include "toolkit/Twips.h"

#include <algorithm>

namespace quor {

namespace {

constexpr double reserve = 200 / twipsPerPixel;

/// Pixels between two texts that are read as two.
constexpr int textGap = 4;

/// Pixels between two lines that look well.
constexpr int lineGap = 2;

bool namesFit(const WeekPlot& plot, const WeekTextSizes& sizes) {
    return std::all_of(sizes.names.begin(), sizes.names.end(),
                       [&plot](int name) { return name + textGap <= plot.cellWidth; });
}

bool labelFitsBetweenNames(const WeekPlot& plot, const WeekTextSizes& sizes) {
    const int labelBegin = labelLeft(plot, sizes.label);
    const int labelEnd = labelBegin + sizes.label;
    int day = 0;
    for (const int name : sizes.names) {
        const int begin = plot.x(day);
        const int end = begin + name;
        if (end + textGap > labelBegin && begin < labelEnd + textGap) {
            return false;
        }
        ++day;
    }
    return true;
}

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

int labelDrop(const WeekPlot& plot, int textHeight) {
    return textHeight + std::clamp(plot.room() - 2 * textHeight, 0, lineGap);
}

std::optional<WeekLines> fittingLines(const WeekPlot& plot, const WeekTextSizes& sizes) {
    if (!namesFit(plot, sizes) || sizes.height > plot.room()) {
        return std::nullopt;
    }
    if (labelFitsBetweenNames(plot, sizes)) {
        return WeekLines::one;
    }
    if (2 * sizes.height <= plot.room() && sizes.label <= plot.picture.width()) {
        return WeekLines::two;
    }
    return std::nullopt;
}

} // namespace quor
