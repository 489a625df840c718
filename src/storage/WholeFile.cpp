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
    const bool opened =
        file.open(QIODevice::WriteOnly) &&
        (readers == Readers::usual || file.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    // Flushing is asked for by name: a commit that flushes a small file itself does not notice a
    // disk that is full, and would put the cut file in the old one's place.
    if (opened && writeAll(file, bytes) && file.flush() && file.commit()) {
        return std::nullopt;
    }
    return file.errorString();
}

bool writeAll(QIODevice& device, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const qint64 written = device.write(bytes.data(), bytes.size());
        if (written <= 0) {
            return false;
        }
        bytes = bytes.sliced(written);
    }
    return true;
}

bool openForReading(QFile& file) {
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
}

QString whyNotOpened(const QFile& file) {
    const QFileInfo info(file.fileName());
    if (!info.exists()) {
        return u"non esiste"_s;
    }
    if (!info.isFile()) {
        return info.isDir() ? u"è una cartella"_s : u"non è un file di dati"_s; // a pipe, a device
    }
    return info.isReadable() ? file.errorString() : u"manca il permesso di leggerlo"_s;
}

} // namespace quor
