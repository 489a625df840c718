#pragma once

#include "Check.h"
#include "core/Dates.h"

#include <QDate>
#include <QString>

#include <cstddef>
#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

/// What the targets that read files share.
namespace quor::fuzz {

/// A file in memory that can be opened by its path.
class MemoryFile {
  public:
    MemoryFile()
        : m_descriptor(memfd_create("fuzz", MFD_CLOEXEC)) {
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
    [[nodiscard]] QString path() const {
        return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
    }

  private:
    int m_descriptor;
};

/// A file name of this process in the memory file system, gone at its end: saving replaces the file
/// by renaming, which a file without a name cannot take.
inline const QString& savedPath() {
    static const struct Path {
        QString text = QStringLiteral("/dev/shm/quor-fuzz-%1").arg(getpid());
        Path() = default;
        ~Path() { unlink(text.toLocal8Bit().constData()); }
        Path(const Path&) = delete;
        Path& operator=(const Path&) = delete;
        Path(Path&&) = delete;
        Path& operator=(Path&&) = delete;
    } path;
    return path.text;
}

inline bool isStorableDate(DateValue date) {
    const QDate day = toQDate(date);
    return date == toDateValue(day) && day.year() >= 100 && day.year() <= 9999;
}

} // namespace quor::fuzz
