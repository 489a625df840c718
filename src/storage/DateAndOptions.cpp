#include "storage/DateAndOptions.h"

namespace quor {

namespace {

/// Colours that a file holds; the last entry of each table is never used.
constexpr std::size_t storedCurveColours = 4;
constexpr std::size_t storedWeeklyColours = 3;

} // namespace

void writeDateAndOptions(LineWriter& writer, const Biorhythm& biorhythm) {
    writer.writeDate(biorhythm.calculationDate);
    writer.writeInteger(biorhythm.dayIndexPosition);
    writer.writeInteger(biorhythm.graphDaysAdjust);
    for (std::size_t i = 0; i < storedCurveColours; ++i) {
        writer.writeInteger(biorhythm.curveColours[i]);
    }
    for (std::size_t i = 0; i < storedWeeklyColours; ++i) {
        writer.writeInteger(biorhythm.weeklyColours[i]);
    }
}

void readDateAndOptions(LineReader& reader, Biorhythm& biorhythm) {
    reader.read(biorhythm.calculationDate);
    reader.read(biorhythm.dayIndexPosition);
    reader.read(biorhythm.graphDaysAdjust);
    for (std::size_t i = 0; i < storedCurveColours; ++i) {
        reader.read(biorhythm.curveColours[i]);
    }
    for (std::size_t i = 0; i < storedWeeklyColours; ++i) {
        reader.read(biorhythm.weeklyColours[i]);
    }
}

void copyDateAndOptions(const Biorhythm& from, Biorhythm& to) {
    to.calculationDate = from.calculationDate;
    setGraphOptions(to, graphOptions(from));
    setWeeklyColours(to, weeklyColours(from));
}

} // namespace quor
