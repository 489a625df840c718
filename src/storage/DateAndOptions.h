#pragma once

#include "core/Biorhythm.h"
#include "storage/LineNotation.h"

/// The end that both kinds of file have in common: the calculation date and the display options.
namespace quor {

/// dayIndexPosition, graphDaysAdjust, curveColours[0..3] and weeklyColours[0..2] after the date.
void writeDateAndOptions(LineWriter& writer, const Biorhythm& biorhythm);
void readDateAndOptions(LineReader& reader, Biorhythm& biorhythm);

} // namespace quor
