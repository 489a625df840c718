#include "storage/SystemFile.h"

#include "storage/DateAndOptions.h"
#include "storage/LineNotation.h"
#include "storage/WholeFile.h"

#include <QFile>

namespace quor {

namespace {

void readMembers(LineReader& reader, AppState& state) {
    reader.read(state.systemCount);
    if (state.systemCount <= 0) {
        state.systemCount = 0;
        return;
    }
    state.systemMembers = std::vector<SystemMember>(static_cast<std::size_t>(state.systemCount));
    for (SystemMember& member : state.systemMembers) {
        reader.read(member.name);
        reader.read(member.birthDate);
    }
}

} // namespace

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

void readSystem(QIODevice& device, Program& program) {
    LineReader reader(device);
    readMembers(reader, program.state);
    readDateAndOptions(reader, program.biorhythm);
}

void readSystemFile(const QString& path, Program& program) {
    QFile file(path);
    if (openForReading(file)) {
        readSystem(file, program);
    }
    program.state.modified = false;
    program.state.systemFilePath = path;
}

} // namespace quor
