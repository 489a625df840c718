// Any bytes as a .bio file: reading ends and takes only values in their ranges, and what was read
// and saved reads back the same.

#include "Check.h"
#include "storage/BiorhythmFile.h"

#include <QDate>

#include <cstddef>
#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using quor::fuzz::check;

/// A file in memory that can be opened by its path.
class MemoryFile {
  public:
    MemoryFile()
        : m_descriptor(memfd_create("fuzz.bio", MFD_CLOEXEC)) {
        check(m_descriptor >= 0, "a file in memory can be made");
    }
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    MemoryFile(MemoryFile&&) = delete;
    MemoryFile& operator=(MemoryFile&&) = delete;

    void setBytes(const std::uint8_t* data, std::size_t size) const {
        check(ftruncate(m_descriptor, 0) == 0 &&
                  pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size),
              "the file in memory can be written");
    }
    [[nodiscard]] QString path() const { return u"/proc/self/fd/%1"_s.arg(m_descriptor); }

  private:
    int m_descriptor;
};

/// A file name of this process in the memory file system: saving replaces the file by renaming,
/// which a file without a name cannot take.
const QString& savedPath() {
    static const struct Path {
        QString text = u"/dev/shm/quor-fuzz-%1.bio"_s.arg(getpid());
        Path() = default;
        ~Path() { unlink(text.toLocal8Bit().constData()); }
        Path(const Path&) = delete;
        Path& operator=(const Path&) = delete;
        Path(Path&&) = delete;
        Path& operator=(Path&&) = delete;
    } path;
    return path.text;
}

bool isStorableDate(quor::DateValue date) {
    const QDate day = quor::toQDate(date);
    return date == quor::toDateValue(day) && day.year() >= 100 && day.year() <= 9999;
}

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
