#include "storage/WholeFile.h"

#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace quor {

std::optional<QString> writeWholeFile(const QString& path, const QByteArray& bytes,
                                      Readers readers) {
    if (const QFileInfo old(path); old.exists() && !old.isFile() && !old.isDir()) {
        return u"Non è un file: niente ne prende il posto."_s; // a pipe, a device
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    if (readers == Readers::userOnly) {
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }
    // Flushing is asked for by name: a commit that flushes a small file itself does not notice a
    // disk that is full, and would put the cut file in the old one's place.
    const bool written = file.write(bytes) == bytes.size() && file.flush() && file.commit();
    return written ? std::nullopt : std::optional(file.errorString());
}

bool openForReading(QFile& file) {
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
}

} // namespace quor
