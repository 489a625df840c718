#include "storage/BiorhythmFile.h"

#include "storage/DateAndOptions.h"
#include "storage/LineNotation.h"
#include "storage/WholeFile.h"

#include <QFile>

namespace quor {

QByteArray biorhythmFileContent(const Biorhythm& biorhythm) {
    LineWriter writer;
    writer.writeString(biorhythm.name);
    writer.writeDate(biorhythm.birthDate);
    writeDateAndOptions(writer, biorhythm);
    return writer.bytes();
}

std::optional<QString> saveBiorhythmFile(const QString& path, Program& program) {
    if (auto failure = writeWholeFile(path, biorhythmFileContent(program.biorhythm))) {
        return failure;
    }
    program.state.modified = false;
    return std::nullopt;
}

void readBiorhythm(QIODevice& device, Program& program) {
    LineReader reader(device);
    reader.read(program.biorhythm.name);
    reader.read(program.biorhythm.birthDate);
    if (!program.state.systemOpen) {
        readDateAndOptions(reader, program.biorhythm);
    }
}

void readBiorhythmFile(const QString& path, Program& program) {
    QFile file(path);
    if (openForReading(file)) {
        readBiorhythm(file, program);
    }
    program.state.modified = false;
    program.state.filePath = path;
}

} // namespace quor
