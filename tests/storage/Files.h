#pragma once

#include "core/Biorhythm.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/resource.h>

/// What the tests of both kinds of file share.
namespace quor::test {

/// A folder of a test's own, with what it puts there.
class Files {
  public:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    /// @return the path of a file that holds these bytes; there is one at a time
    [[nodiscard]] QString write(const QByteArray& bytes) const;
    [[nodiscard]] static QByteArray read(const QString& file);

  private:
    QTemporaryDir m_folder;
};

/// While it lives no file grows beyond so many bytes: it stands for a disk that is full.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    FullDisk(FullDisk&&) = delete;
    FullDisk& operator=(FullDisk&&) = delete;

  private:
    rlimit m_old{};
    void (*m_oldHandler)(int);
};

/// Bytes of every value, in no order, the same ones each time.
[[nodiscard]] QByteArray binaryBytes(qsizetype size);

/// The fields that a .bio file holds, in its order, as text. A .brs file ends with those from the
/// third on.
[[nodiscard]] QStringList fields(const Biorhythm& biorhythm);

} // namespace quor::test
