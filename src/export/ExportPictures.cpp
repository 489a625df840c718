#include "export/ExportPictures.h"

#include "core/Rounding.h"
#include "toolkit/Twips.h"
#include "views/graph/GraphDrawing.h"
#include "views/graph/WeekDrawing.h"

#include <QFontMetrics>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Pixels of the font: what reads well beside the curves, and what is still legible.
constexpr int largestFont = 13;
constexpr int smallestFont = 8;

/// Pixels of the summary page: the border around each picture, and what a table has within and
/// between its cells where a page says nothing.
constexpr int pictureBorder = 1;
constexpr int cellPadding = 1;
constexpr int cellSpacing = 2;

/// The weekly pictures beside each other.
constexpr int weekCycles = 3;

/// Of the graph's height. With a quarter each for the two rows, the whole page for print comes out
/// on one sheet of A4.
constexpr double weekHeight = 0.25;

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

/// The fonts to choose from, largest first.
std::vector<QFont> pictureFonts() {
    std::vector<QFont> fonts;
    for (int pixels = largestFont; pixels >= smallestFont; --pixels) {
        fonts.push_back(pictureFont(pixels));
    }
    return fonts;
}

/// The largest font with which the texts of a picture keep clear of each other, or the smallest.
template<typename Fits> QFont largestFitting(const Fits& fits) {
    const std::vector<QFont> fonts = pictureFonts();
    const auto found = std::find_if(fonts.begin(), fonts.end(), fits);
    return found == fonts.end() ? fonts.back() : *found;
}

} // namespace

Twips fromPixels(QSize pixels) {
    return {.width = pixels.width() * twipsPerPixel, .height = pixels.height() * twipsPerPixel};
}

Twips defaultScreen() {
    return fromPixels({1920, 1080});
}

Twips defaultPaper() {
    constexpr double twipsPerMillimetre = twipsPerInch / 25.4;
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

QSize weekPictureSize(WeekRow row, QSize exportSize) {
    // A cell is larger than its picture by border and padding; the table has spacing between its
    // cells and on both sides. The graph's picture and this table stand in cells of one width.
    constexpr int aroundPicture = 2 * (pictureBorder + cellPadding);
    const int room = exportSize.width() + 2 * pictureBorder;
    const int cycle =
        (room - weekCycles * aroundPicture - (weekCycles + 1) * cellSpacing) / weekCycles;
    if (cycle <= 0) {
        return {0, 0};
    }
    const int mean = weekCycles * cycle + (weekCycles - 1) * (aroundPicture + cellSpacing);
    return {row == WeekRow::mean ? mean : cycle, toPixel(exportSize.height() * weekHeight)};
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
    const std::int32_t firstDay = dayCountOnCalculationDate(biorhythm) - plot.daysAround;
    return {.drawing = drawGraph(personSeries(firstDay, plot.daysAround), plot, style, locale),
            .font = font,
            .size = size};
}

ExportPicture weekPicture(const Biorhythm& biorhythm, WeekRow row, QSize size,
                          const QLocale& locale) {
    const Week week = weekOf(biorhythm);
    const WeekPlot plot = layOutWeek(size);
    const WeekTexts texts = layOutTexts(plot, pictureFonts(), locale);
    const WeekStyle style{.colours = weeklyColours(biorhythm),
                          .weekday = week.weekday,
                          .labelWidth = labelWidth(texts.font, row),
                          .labelDrop = texts.labelDrop,
                          .names = texts.names};
    return {.drawing = drawWeekRow(week.weekStartDayCount, row, plot, style, locale),
            .font = texts.font,
            .size = size};
}

} // namespace quor
