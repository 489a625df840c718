// Any bytes as a .bio file: reading ends and takes only values in their ranges, and what was read
// and saved reads back the same.

#include "Files.h"
#include "storage/BiorhythmFile.h"

#include <cstddef>
#include <cstdint>
#include <tuple>

namespace {

using quor::fuzz::check;
using quor::fuzz::isStorableDate;
using quor::fuzz::MemoryFile;
using quor::fuzz::savedPath;

/// Everything that a file holds.
auto stored(const quor::Biorhythm& b) {
    return std::tuple(b.name, b.birthDate, b.calculationDate, b.dayIndexPosition, b.graphDaysAdjust,
                      b.curveColours, b.weeklyColours);
}

quor::Program freshProgram() {
    quor::Program program;
    quor::resetDisplayOptions(program.biorhythm);
    return program;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile input;
    input.setBytes(data, size);

    quor::Program read = freshProgram();
    readBiorhythmFile(input.path(), read);
    check(isStorableDate(read.biorhythm.birthDate), "the birth date can be stored");
    check(isStorableDate(read.biorhythm.calculationDate), "the calculation date can be stored");
    check(read.state.filePath == input.path() && !read.state.modified, "the file is remembered");

    check(!saveBiorhythmFile(savedPath(), read), "what was read can be saved");
    quor::Program again = freshProgram();
    readBiorhythmFile(savedPath(), again);
    check(stored(again.biorhythm) == stored(read.biorhythm), "what was saved reads back the same");

    // While a system is open only the person is taken.
    quor::Program withSystem = freshProgram();
    withSystem.state.systemOpen = true;
    readBiorhythmFile(input.path(), withSystem);
    quor::Biorhythm personOnly = freshProgram().biorhythm;
    personOnly.name = read.biorhythm.name;
    personOnly.birthDate = read.biorhythm.birthDate;
    check(stored(withSystem.biorhythm) == stored(personOnly),
          "an open system takes the person only");
    return 0;
}
