// Any bytes as the content of a .bio file: reading ends and takes only values in their ranges, what
// is refused changes nothing, and what was read and written reads back the same.

#include "Input.h"
#include "storage/BiorhythmFile.h"

#include <tuple>

namespace {

using quor::fuzz::check;
using quor::fuzz::isStorableDate;

/// Everything that a file holds.
auto stored(const quor::Biorhythm& b) {
    return std::tie(b.name, b.birthDate, b.calculationDate, b.dayIndexPosition, b.graphDaysAdjust,
                    b.curveColours, b.weeklyColours);
}

quor::Program freshProgram() {
    quor::Program program;
    quor::resetDisplayOptions(program.biorhythm);
    return program;
}

bool readInto(quor::Program& program, const QByteArray& bytes) {
    bool taken = false;
    quor::fuzz::readFrom(
        bytes, [&](QIODevice& device) { taken = !readBiorhythm(device, program.biorhythm); });
    return taken;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = quor::fuzz::bytesOf(data, size);
    quor::Program read = freshProgram();
    if (!readInto(read, bytes)) {
        check(stored(read.biorhythm) == stored(freshProgram().biorhythm),
              "what is refused changes nothing");
        return 0;
    }
    check(isStorableDate(read.biorhythm.birthDate), "the birth date can be stored");
    check(isStorableDate(read.biorhythm.calculationDate), "the calculation date can be stored");

    quor::Program again = freshProgram();
    const QByteArray written = quor::biorhythmFileContent(read.biorhythm);
    check(readInto(again, written), "what was written is read");
    check(stored(again.biorhythm) == stored(read.biorhythm),
          "what was written reads back the same");
    check(quor::biorhythmFileContent(again.biorhythm) == written, "and is written the same");

    // While a system is open only the person is taken.
    quor::Program withSystem = freshProgram();
    withSystem.state.systemOpen = true;
    takeBiorhythm(read, withSystem);
    quor::Biorhythm personOnly = freshProgram().biorhythm;
    personOnly.name = read.biorhythm.name;
    personOnly.birthDate = read.biorhythm.birthDate;
    check(stored(withSystem.biorhythm) == stored(personOnly),
          "an open system takes the person only");
    return 0;
}
