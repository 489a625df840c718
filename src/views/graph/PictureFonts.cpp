#include "views/graph/PictureFonts.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Points. Below this a text is no longer worth reading.
constexpr double smallestFont = 6;
constexpr double fontStep = 0.5;

/// Pixels between two numbers that are read as two.
constexpr int numberGap = 2;

} // namespace

std::vector<QFont> sizesOf(const QFont& font) {
    std::vector<QFont> fonts{font};
    double size = QFontInfo(font).pointSizeF();
    while (size - fontStep >= smallestFont) {
        size -= fontStep;
        fonts.push_back(font);
        fonts.back().setPointSizeF(size);
    }
    return fonts;
}

QFont fontOfNumbers(const QFont& font, const GraphPlot& plot) {
    const std::vector<QFont> fonts = sizesOf(font);
    const auto found = std::find_if(fonts.begin(), fonts.end(), [&plot](const QFont& size) {
        return QFontMetrics(size).horizontalAdvance(u"00"_s) + numberGap <= plot.dayWidth;
    });
    return found != fonts.end() ? *found : fonts.back();
}

} // namespace quor
