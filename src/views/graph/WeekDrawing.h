#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Drawing.h"
#include "views/graph/WeekPlot.h"
#include "views/graph/WeekState.h"

#include <QFont>
#include <QLocale>

#include <vector>

namespace quor {

/// How a row of the weekly state is drawn.
struct WeekStyle {
    WeeklyColours colours{}; ///< by `DayClass`
    int weekday = 1;         ///< of the calculation date: Monday is 1, Sunday is 7
    int labelWidth = 0;      ///< pixels, of the row's label in the picture's bold font
    int labelDrop = 0;       ///< pixels from the line of the weekdays' names down to the label's
    QLocale::FormatType names = QLocale::ShortFormat; ///< of the weekdays
};

/// One row, in its order: the bars of the half days, the row's label in bold, the zero line, for
/// each day its grid line and its name, top and bottom border, and a blue frame around the column
/// of the calculation date.
///
/// A bar stands between the zero line and its value. Two bars side by side share a pixel column,
/// which the later one covers.
[[nodiscard]] Drawing drawWeekRow(std::int32_t weekStartDayCount, WeekRow row, const WeekPlot& plot,
                                  const WeekStyle& style, const QLocale& locale = QLocale());

/// The name of a weekday below its column: "lun", or "L" in the narrow format.
/// @param weekday 1 for Monday to 7
[[nodiscard]] QString weekdayName(int weekday, const QLocale& locale = QLocale(),
                                  QLocale::FormatType format = QLocale::ShortFormat);

/// How wide a row's label is in the bold of a font.
[[nodiscard]] int labelWidth(const QFont& font, WeekRow row);

/// How the texts of a row are set.
struct WeekTexts {
    QFont font;
    int labelDrop = 0;                                ///< as in `WeekStyle`
    QLocale::FormatType names = QLocale::ShortFormat; ///< of the weekdays
};

/// Chooses the first font in which the texts fit, with the label on the line of the names where it
/// can stand there. If they fit in none, it tries narrow names instead of short ones; failing that
/// too, the last font, narrow names and two lines overlap least. All rows of one plot come to the
/// same: the label counts as long as the longest of the four.
/// @param fonts one at least, largest first
[[nodiscard]] WeekTexts layOutTexts(const WeekPlot& plot, const std::vector<QFont>& fonts,
                                    const QLocale& locale = QLocale());

} // namespace quor
