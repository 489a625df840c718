// Any bytes as the content of a .brs file: reading ends and takes only values in their ranges, the
// list never has fewer entries than it says, what is refused changes nothing, and what was read and
// written reads back the same.

#include "Input.h"
#include "storage/LineNotation.h"
#include "storage/SystemFile.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using quor::fuzz::check;
using quor::fuzz::isStorableDate;

/// A few bytes can announce the largest system, and nearly all time would go into nameless members.
/// libFuzzer is given so many at most; the corpus, when it is replayed, as many as there can be.
#ifdef QUOR_REPLAY
constexpr std::int64_t mostMembers = std::numeric_limits<std::int16_t>::max();
#else
constexpr std::int64_t mostMembers = 60;
#endif

bool announcesTooMany(const QByteArray& bytes) {
    const auto count = quor::parseInteger(
        QByteArrayView(bytes).first(bytes.contains('\n') ? bytes.indexOf('\n') : bytes.size()));
    return count && *count > mostMembers && *count <= std::numeric_limits<std::int16_t>::max();
}

/// What a .brs file holds of the record.
auto stored(const quor::Biorhythm& b) {
    return std::tie(b.calculationDate, b.dayIndexPosition, b.graphDaysAdjust, b.curveColours,
                    b.weeklyColours);
}

std::span<const quor::SystemMember> counted(const quor::AppState& state) {
    return std::span(state.systemMembers).first(static_cast<std::size_t>(state.systemCount));
}

/// A program that has so many members.
quor::Program programWith(std::int16_t members) {
    quor::Program program;
    quor::resetDisplayOptions(program.biorhythm);
    program.biorhythm.name = u"Persona"_s;
    program.biorhythm.birthDate = 300;
    program.state.systemMembers.assign(static_cast<std::size_t>(members), {u"Membro"_s, 400});
    program.state.systemCount = members;
    return program;
}

/// Nothing for what is refused.
std::optional<quor::Program> readInto(quor::Program program, const QByteArray& bytes) {
    const quor::Program before = program;
    bool taken = false;
    quor::fuzz::readFrom(bytes, [&](QIODevice& device) { taken = !readSystem(device, program); });
    if (!taken) {
        check(quor::systemFileContent(program) == quor::systemFileContent(before),
              "what is refused changes nothing");
        return std::nullopt;
    }
    const quor::AppState& state = program.state;
    check(state.systemCount >= 0 &&
              state.systemMembers.size() >= static_cast<std::size_t>(state.systemCount),
          "there are as many entries as members");
    check(std::ranges::all_of(state.systemMembers,
                              [](const auto& m) { return isStorableDate(m.birthDate); }),
          "the birth dates can be stored");
    check(isStorableDate(program.biorhythm.calculationDate), "the calculation date can be stored");
    check(program.biorhythm.name == u"Persona"_s && program.biorhythm.birthDate == 300,
          "the person of the record stays");
    return program;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = quor::fuzz::bytesOf(data, size);
    if (announcesTooMany(bytes)) {
        return 0;
    }
    for (const std::int16_t before : {std::int16_t{0}, std::int16_t{3}}) {
        const auto taken = readInto(programWith(before), bytes);
        if (!taken) {
            return 0;
        }
        const quor::Program& read = *taken;
        const auto& members = read.state.systemMembers;
        check(read.state.systemCount == 0 || std::ssize(members) == read.state.systemCount,
              "members are new ones, none besides them");
        check(read.state.systemCount > 0 || members == programWith(before).state.systemMembers,
              "without members the old entries stay");

        const QByteArray written = quor::systemFileContent(read);
        const auto reread = readInto(programWith(1), written);
        check(reread.has_value(), "what was written is read");
        const quor::Program& again = *reread;
        check(std::ranges::equal(counted(again.state), counted(read.state)),
              "the members read back the same");
        check(stored(again.biorhythm) == stored(read.biorhythm),
              "date and options read back the same");
        check(quor::systemFileContent(again) == written, "and all is written the same");
    }
    return 0;
}
