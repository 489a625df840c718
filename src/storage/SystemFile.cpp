#include "storage/SystemFile.h"

#include "storage/DateAndOptions.h"
#include "storage/LineNotation.h"

#include <QFile>

#include <algorithm>
#include <span>

namespace quor {

std::optional<QString> saveSystemFile(const QString& path, Program& program) {
    AppState& state = program.state;
    LineWriter writer;
    writer.writeInteger(state.systemCount);
    for (const SystemMember& member :
         std::span(state.systemMembers).first(static_cast<std::size_t>(state.systemCount))) {
        writer.writeString(member.name);
        writer.writeDate(member.birthDate);
    }
    writeDateAndOptions(writer, program.biorhythm);
    if (auto failure = writeWholeFile(path, writer.bytes())) {
        return failure;
    }
    state.modified = false;
    return std::nullopt;
}

void readSystemFile(const QString& path, Program& program) {
    AppState& state = program.state;
    QFile file(path);
    if (openForReading(file)) {
        LineReader reader(file);
        reader.read(state.systemCount);
        state.systemCount = std::max<std::int16_t>(state.systemCount, 0);
        if (state.systemCount > 0) {
            state.systemMembers.assign(static_cast<std::size_t>(state.systemCount), {});
            for (SystemMember& member : state.systemMembers) {
                reader.read(member.name);
                reader.read(member.birthDate);
            }
        }
        readDateAndOptions(reader, program.biorhythm);
    }
    state.modified = false;
    state.systemFilePath = path;
}

} // namespace quor
