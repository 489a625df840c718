#include "storage/BiorhythmFile.h"

#include "storage/DateAndOptions.h"
#include "storage/LineNotation.h"

#include <QFile>

namespace quor {

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
