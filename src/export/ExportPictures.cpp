#include "export/ExportPictures.h"

#include "core/Rounding.h"
#include "views/graph/GraphDrawing.h"
#include "views/graph/WeekDrawing.h"

#include <QFontMetrics>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr double twipsPerPixel = 15;

/// Pixels of the font: what reads well beside the curves, and what is still legible.
constexpr int largestFont = 13;
constexpr int smallestFont = 8;

/// The font of all pictures, without what a desktop may choose for its own texts.
QFont pictureFont(int pixels) {
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(pixels);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    // All of it is meant: what is left open, a painter takes from the application's font.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}

/// The largest font with which the texts of a picture keep clear of each other, or the smallest.
template<typename Fits> QFont largestFitting(const Fits& fits) {
    for (int pixels = largestFont; pixels > smallestFont; --pixels) {
        const QFont font = pictureFont(pixels);
        if (fits(font)) {
            return font;
        }
    }
    return pictureFont(smallestFont);
}

int labelWidth(const QFont& font, WeekRow row) {
    QFont bold = font;
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(rowLabel(row));
}

/// The sizes of a row's texts. The label is the longest of the four, so that all rows come to one
/// font.
WeekTextSizes measure(const QFont& font, const QLocale& locale) {
    const QFontMetrics metrics(font);
    WeekTextSizes sizes;
    sizes.height = metrics.height();
    for (const WeekRow row : weekRows) {
        sizes.label = std::max(sizes.label, labelWidth(font, row));
    }
    int weekday = 1;
    for (int& width : sizes.names) {
        width = metrics.horizontalAdvance(weekdayName(weekday, locale));
        ++weekday;
    }
    return sizes;
}

} // namespace

Twips fromPixels(QSize pixels) {
    return {.width = pixels.width() * twipsPerPixel, .height = pixels.height() * twipsPerPixel};
}

Twips defaultScreen() {
    return fromPixels({1920, 1080});
}

Twips defaultPaper() {
    constexpr double twipsPerMillimetre = 1440 / 25.4;
    return {.width = roundHalfEven(210 * twipsPerMillimetre),
            .height = roundHalfEven(297 * twipsPerMillimetre)};
}

QSize pictureSize(PageVariant variant, const Twips& surface) {
    Twips picture;
    if (variant == PageVariant::print) {
        picture.width = roundHalfEven(surface.width * 80 / 100);
        picture.height = roundHalfEven(surface.height * 40 / 100);
    } else {
        picture.width = roundHalfEven(surface.width * 80 / 100 - 200);
        picture.height = roundHalfEven(surface.height * 60 / 100 - 200);
    }
    return QSize(toPixel(picture.width / twipsPerPixel), toPixel(picture.height / twipsPerPixel))
        .expandedTo({0, 0});
}

ExportPicture graphPicture(const Biorhythm& biorhythm, QSize size, const QLocale& locale) {
    const GraphOptions options = graphOptions(biorhythm);
    const GraphPlot plot = layOutGraph(size, daysAround(options.graphDaysAdjust));
    const QFont font = largestFitting([&plot](const QFont& candidate) {
        return QFontMetrics(candidate).horizontalAdvance(u"00"_s) < plot.dayWidth;
    });
    const GraphStyle style{.show = biorhythm.showFlags(),
                           .colours = options.colours,
                           .dayIndexPosition = options.dayIndexPosition,
                           .calculationDate = biorhythm.calculationDate,
                           .textHeight = QFontMetrics(font).height()};
    const std::int32_t firstDay = biorhythm.daysAtGraphStart + GRAPH_BASE_DAYS - plot.daysAround;
    return {.drawing = drawGraph(personSeries(firstDay, plot.daysAround), plot, style, locale),
            .font = font,
            .size = size};
}

ExportPicture weekPicture(const Biorhythm& biorhythm, WeekRow row, QSize size,
                          const QLocale& locale) {
    const Week week = weekOf(biorhythm);
    const WeekPlot plot = layOutWeek(size);
    const QFont font = largestFitting([&plot, &locale](const QFont& candidate) {
        return textsFit(plot, measure(candidate, locale));
    });
    const WeekStyle style{.colours = weeklyColours(biorhythm),
                          .weekday = week.weekday,
                          .labelWidth = labelWidth(font, row)};
    return {.drawing = drawWeekRow(week.weekStartDayCount, row, plot, style, locale),
            .font = font,
            .size = size};
}

} // namespace quor
