#pragma once

#include "core/Biorhythm.h"
#include "storage/LineNotation.h"

/// The last ten lines of both kinds of file: calculation date, dayIndexPosition, graphDaysAdjust,
/// curveColours[0..3], weeklyColours[0..2].
namespace quor {

void writeDateAndOptions(LineWriter& writer, const Biorhythm& biorhythm);

/// What is missing or damaged keeps its value.
void readDateAndOptions(LineReader& reader, Biorhythm& biorhythm);

void copyDateAndOptions(const Biorhythm& from, Biorhythm& to);

} // namespace quor
