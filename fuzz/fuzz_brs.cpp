// Any bytes as a .brs file: reading ends and takes only values in their ranges, the list never has
// fewer entries than it says, and what was read and saved reads back the same.

#include "Files.h"
#include "storage/SystemFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using quor::fuzz::check;
using quor::fuzz::isStorableDate;
using quor::fuzz::MemoryFile;
using quor::fuzz::savedPath;

/// What a .brs file holds of the record.
auto stored(const quor::Biorhythm& b) {
    return std::tuple(b.calculationDate, b.dayIndexPosition, b.graphDaysAdjust, b.curveColours,
                      b.weeklyColours);
}

std::vector<quor::SystemMember> counted(const quor::AppState& state) {
    return {state.systemMembers.begin(), state.systemMembers.begin() + state.systemCount};
}

/// A program that has so many members.
quor::Program programWith(std::int16_t members) {
    quor::Program program;
    quor::resetDisplayOptions(program.biorhythm);
    program.biorhythm.name = u"Persona"_s;
    program.biorhythm.birthDate = 300;
    program.state.systemMembers.assign(static_cast<std::size_t>(members), {u"Membro"_s, 400});
    program.state.systemCount = members;
    program.state.modified = true;
    return program;
}

quor::Program readInto(quor::Program program, const QString& path) {
    readSystemFile(path, program);
    const quor::AppState& state = program.state;
    check(state.systemCount >= 0 &&
              state.systemMembers.size() >= static_cast<std::size_t>(state.systemCount),
          "there are as many entries as members");
    check(std::all_of(state.systemMembers.begin(), state.systemMembers.end(),
                      [](const auto& m) { return isStorableDate(m.birthDate); }),
          "the birth dates can be stored");
    check(isStorableDate(program.biorhythm.calculationDate), "the calculation date can be stored");
    check(state.systemFilePath == path && !state.modified, "the file is remembered");
    check(program.biorhythm.name == u"Persona"_s && program.biorhythm.birthDate == 300,
          "the person of the record stays");
    return program;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile input;
    input.setBytes(data, size);

    for (const std::int16_t before : {std::int16_t{0}, std::int16_t{3}}) {
        quor::Program read = readInto(programWith(before), input.path());
        const auto& members = read.state.systemMembers;
        check(read.state.systemCount == 0 || std::ssize(members) == read.state.systemCount,
              "members are new ones, none besides them");
        check(read.state.systemCount > 0 || members == programWith(before).state.systemMembers,
              "without members the old entries stay");

        check(!saveSystemFile(savedPath(), read), "what was read can be saved");
        const quor::Program again = readInto(programWith(1), savedPath());
        check(counted(again.state) == counted(read.state), "the members read back the same");
        check(stored(again.biorhythm) == stored(read.biorhythm),
              "date and options read back the same");
    }
    return 0;
}
