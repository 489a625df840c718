#include "storage/SystemFile.h"

#include "storage/DateAndOptions.h"
#include "storage/LineNotation.h"
#include "storage/WholeFile.h"

#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

QByteArray systemFileContent(const Program& program) {
    const auto members = program.state.members();
    LineWriter writer;
    writer.writeInteger(static_cast<std::int32_t>(members.size()));
    for (const SystemMember& member : members) {
        writer.writeString(member.name);
        writer.writeDate(member.birthDate);
    }
    writeDateAndOptions(writer, program.biorhythm);
    return writer.bytes();
}

std::optional<QString> saveSystemFile(const QString& path, Program& program) {
    if (auto failure = writeWholeFile(path, systemFileContent(program))) {
        return failure;
    }
    program.state.modified = false;
    return std::nullopt;
}

std::optional<QString> readSystem(QIODevice& device, Program& program) {
    LineReader reader(device);
    std::int16_t count = -1;
    if (!reader.read(count) || count < 0) {
        return u"alla riga 1 non c'è un numero di persone da 0 a %1"_s.arg(maximumMembers);
    }
    AppState& state = program.state;
    state.systemCount = count;
    if (count > 0) {
        state.systemMembers = std::vector<SystemMember>(static_cast<std::size_t>(count));
        for (SystemMember& member : state.systemMembers) {
            reader.read(member.name);
            reader.read(member.birthDate);
        }
    }
    readDateAndOptions(reader, program.biorhythm);
    return std::nullopt;
}

std::optional<QString> readSystemFile(const QString& path, Program& program) {
    QFile file(path);
    if (!openForReading(file)) {
        return whyNotOpened(file);
    }
    auto fault = readSystem(file, program);
    if (!fault) {
        program.state.modified = false;
        program.state.systemFilePath = path;
    }
    return fault;
}

void takeSystem(Program read, Program& program) {
    program.state.systemCount = read.state.systemCount;
    program.state.systemMembers = std::move(read.state.systemMembers);
    program.state.systemFilePath = std::move(read.state.systemFilePath);
    program.state.modified = false;
    copyDateAndOptions(read.biorhythm, program.biorhythm);
}

} // namespace quor
