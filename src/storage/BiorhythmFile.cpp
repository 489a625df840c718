#include "storage/BiorhythmFile.h"

#include "storage/DateAndOptions.h"
#include "storage/LineNotation.h"
#include "storage/WholeFile.h"

#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

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

std::optional<QString> readBiorhythm(QIODevice& device, Biorhythm& biorhythm) {
    LineReader reader(device);
    QString name;
    DateValue birthDate = 0;
    if (!reader.read(name)) {
        return u"il nome, alla riga 1, manca o è danneggiato"_s;
    }
    if (!reader.read(birthDate)) {
        return u"la data di nascita, alla riga 2, manca o è danneggiata"_s;
    }
    biorhythm.name = std::move(name);
    biorhythm.birthDate = birthDate;
    readDateAndOptions(reader, biorhythm);
    return std::nullopt;
}

std::optional<QString> readBiorhythmFile(const QString& path, Program& program) {
    QFile file(path);
    if (!openForReading(file)) {
        return whyNotOpened(file);
    }
    auto fault = readBiorhythm(file, program.biorhythm);
    if (!fault) {
        program.state.modified = false;
        program.state.filePath = path;
    }
    return fault;
}

void takeBiorhythm(const Program& read, Program& program) {
    program.biorhythm.name = read.biorhythm.name;
    program.biorhythm.birthDate = read.biorhythm.birthDate;
    if (!program.state.systemOpen) {
        copyDateAndOptions(read.biorhythm, program.biorhythm);
    }
    program.state.filePath = read.state.filePath;
    program.state.modified = false;
}

} // namespace quor
