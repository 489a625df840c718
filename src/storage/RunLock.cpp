#include "storage/RunLock.h"

#include <QFile>

#include <cerrno>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quor {

namespace {

/// A pipe or a device can be locked too, but it is somebody else's, and no lock takes it away.
bool isOrdinaryFile(int descriptor) {
    struct stat opened {};
    return fstat(descriptor, &opened) == 0 && S_ISREG(opened.st_mode);
}

/// The path still leads to the open file: nobody has removed it before it was locked.
bool isFileAt(const QByteArray& path, int descriptor) {
    struct stat opened {};
    struct stat found {};
    return fstat(descriptor, &opened) == 0 && lstat(path.constData(), &found) == 0 &&
           opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

} // namespace

std::optional<RunLock> RunLock::take(const QString& path) {
    return wait(path, std::chrono::milliseconds(0));
}

std::optional<RunLock> RunLock::wait(const QString& path, std::chrono::milliseconds longest) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause(5);
    const auto end = Clock::now() + longest;
    const QByteArray name = QFile::encodeName(path);
    constexpr int attempts = 3; // who holds a lock may remove its file while another waits to see
    for (int removed = 0; removed < attempts || Clock::now() < end;) {
        const int descriptor =
            open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
        if (descriptor < 0) {
            return std::nullopt;
        }
        RunLock lock(descriptor, name);
        if (!isOrdinaryFile(descriptor)) {
            return std::nullopt;
        }
        if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            if (errno != EWOULDBLOCK || Clock::now() >= end) {
                return std::nullopt;
            }
            std::this_thread::sleep_for(pause);
        } else if (isFileAt(name, descriptor)) {
            return lock;
        } else {
            ++removed;
        }
    }
    return std::nullopt;
}

RunLock::RunLock(int descriptor, QByteArray path)
    : m_descriptor(descriptor)
    , m_path(std::move(path)) {}

RunLock::~RunLock() {
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

RunLock::RunLock(RunLock&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_path(std::move(other.m_path)) {}

RunLock& RunLock::operator=(RunLock&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    m_path.swap(other.m_path);
    return *this;
}

void RunLock::removeFile() {
    unlink(m_path.constData());
}

} // namespace quor
