// Any bytes as the file of the settings store: there is always an answer, and what is saved is what
// is read, whatever stood in the file. Saving takes many times as long as reading, so it is done
// for files that begin with a ';', which starts a comment; what follows is also the text that is
// saved.

#include "Input.h"
#include "toolkit/SettingsStore.h"

#include <QDir>

#include <algorithm>
#include <array>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using quor::fuzz::check;

constexpr std::uint8_t saving = ';';
constexpr std::size_t longestText = 32;

/// The store's file in a folder of this process in the memory file system, gone at its end.
class StoreFile {
  public:
    StoreFile() {
        check(QDir().mkpath(m_folder), "a folder for the store can be made");
        qputenv("XDG_CONFIG_HOME", m_folder.toLocal8Bit());
    }
    ~StoreFile() { QDir(m_folder).removeRecursively(); }
    StoreFile(const StoreFile&) = delete;
    StoreFile& operator=(const StoreFile&) = delete;
    StoreFile(StoreFile&&) = delete;
    StoreFile& operator=(StoreFile&&) = delete;

    void setBytes(const std::uint8_t* data, std::size_t size) {
        const int file =
            open(m_path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
        check(file >= 0 && write(file, data, size) == static_cast<ssize_t>(size),
              "the store's file can be written");
        // The toolkit reads a file again when its size or its time is another one.
        const timespec time{.tv_sec = ++m_time, .tv_nsec = 0};
        const std::array times{time, time};
        check(futimens(file, times.data()) == 0 && close(file) == 0, "it has a time of its own");
    }

  private:
    QString m_folder = u"/dev/shm/quor-fuzz-%1"_s.arg(getpid());
    QByteArray m_path = m_folder.toLocal8Bit() + "/quor.ini";
    time_t m_time = 1;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static StoreFile file;
    file.setBytes(data, size);

    const QString fastStart = quor::readFastStart();
    check(!fastStart.isEmpty(), "an empty setting counts as true");
    if (size == 0 || data[0] != saving) {
        return 0;
    }

    const auto section = u"Options"_s;
    const auto key = u"FastStart"_s;
    const QString text = quor::fuzz::textOf(data + 1, std::min(size - 1, longestText));
    check(quor::saveSetting(section, key, text), "the store can be written, whatever it held");
    check(quor::getSetting(section, key) == text, "what was saved is what is read");
    return 0;
}
