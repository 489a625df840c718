#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Drawing.h"
#include "views/graph/WeekPlot.h"
#include "views/graph/WeekState.h"

#include <QLocale>

namespace quor {

/// How a row of the weekly state is drawn.
struct WeekStyle {
    WeeklyColours colours{}; ///< by `DayClass`
    int weekday = 1;         ///< of the calculation date: Monday is 1, Sunday is 7
    int labelWidth = 0;      ///< pixels, of the row's label in the picture's bold font
};

/// One row, in its order: the bars of the half days, the row's label in bold, the zero line, for
/// each day its grid line and its name, top and bottom border, and a blue frame around the column
/// of the calculation date.
///
/// A bar stands between the zero line and its value. Two bars side by side share a pixel column,
/// which the later one covers.
[[nodiscard]] Drawing drawWeekRow(std::int32_t weekStartDayCount, WeekRow row, const WeekPlot& plot,
                                  const WeekStyle& style, const QLocale& locale = QLocale());

/// The name of a weekday below its column, "lun".
/// @param weekday 1 for Monday to 7
[[nodiscard]] QString weekdayName(int weekday, const QLocale& locale = QLocale());

} // namespace quor
