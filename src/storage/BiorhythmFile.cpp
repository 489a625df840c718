#include "storage/BiorhythmFile.h"

#include "storage/LineNotation.h"

#include <QFile>

namespace quor {

namespace {

/// Colours that a file holds; the last entry of each table is never used.
constexpr std::size_t storedCurveColours = 4;
constexpr std::size_t storedWeeklyColours = 3;

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

} // namespace

std::optional<QString> saveBiorhythmFile(const QString& path, Program& program) {
    LineWriter writer;
    writer.writeString(program.biorhythm.name);
    writer.writeDate(program.biorhythm.birthDate);
    writeDateAndOptions(writer, program.biorhythm);
    if (auto failure = writeWholeFile(path, writer.bytes())) {
        return failure;
    }
    program.state.modified = false;
    return std::nullopt;
}

void readBiorhythmFile(const QString& path, Program& program) {
    QFile file(path);
    if (openForReading(file)) {
        LineReader reader(file);
        reader.read(program.biorhythm.name);
        reader.read(program.biorhythm.birthDate);
        if (!program.state.systemOpen) {
            readDateAndOptions(reader, program.biorhythm);
        }
    }
    program.state.modified = false;
    program.state.filePath = path;
}

} // namespace quor
