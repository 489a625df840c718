#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

namespace quor {

/// A file that says, by a lock on it, that somebody is at work: held while the object lives, and
/// gone with the process however that ends. A number of a process, which another one may bear
/// later, plays no part. Programs that are started meanwhile do not inherit it.
class RunLock {
  public:
    /// Makes the file where it is missing. Nothing while another holds the lock, in this process
    /// too, and where the file cannot be made.
    [[nodiscard]] static std::optional<RunLock> take(const QString& path);

    /// The same, but waits for another to give the lock back. Where the file cannot be made nobody
    /// is waited for.
    [[nodiscard]] static std::optional<RunLock> wait(const QString& path,
                                                     std::chrono::milliseconds longest);

    ~RunLock();
    RunLock(RunLock&& other) noexcept;
    RunLock& operator=(RunLock&& other) noexcept;
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

    /// Takes the file away; the lock stays held, on nothing that anybody could find.
    void removeFile();

  private:
    RunLock(int descriptor, QByteArray path);

    int m_descriptor;
    QByteArray m_path;
};

} // namespace quor
