#include "toolkit/SettingsStore.h"

#include "storage/WholeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Far more than the program ever writes.
constexpr qint64 largestFile = 65536;

/// The file of the user that is named after the program.
QString storePath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(u"quor.ini"_s);
}

/// Whether the toolkit can be asked to read it: of a pipe it would wait for somebody who fills it,
/// and it takes the whole of any file into memory.
bool canBeRead(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.size() <= largestFile;
}

QString address(const QString& section, const QString& key) {
    return section + u'/' + key;
}

/// The value as the toolkit reads it again: between quotes where it is more than letters and
/// digits, everything but plain characters as a number.
QString written(const QString& value) {
    const auto isPlain = [](QChar c) { return c.unicode() < 0x80 && c.isLetterOrNumber(); };
    if (std::ranges::all_of(value, isPlain)) {
        return value;
    }
    // The toolkit's own words begin with this character; twice it is a text's.
    QString text = value.startsWith(u'@') ? u"@"_s : QString();
    bool afterNumber = false; // which would take a digit after it for its own
    for (const QChar c : value) {
        const bool asNumber = c.unicode() < 0x20 || c.unicode() > 0x7E || c == u'"' || c == u'\\' ||
                              (afterNumber && isPlain(c));
        text += asNumber ? u"\\x"_s + QString::number(c.unicode(), 16) : QString(c);
        afterNumber = asNumber;
    }
    return u'"' + text + u'"';
}

/// The file's lines with the key's value in its place, once. What else a hand has written there
/// stays.
QStringList changed(const QStringList& lines, const QString& section, const QString& key,
                    const QString& value) {
    const QString heading = u'[' + section + u']';
    const QString entry = key + u'=' + written(value);
    QStringList result;
    bool inside = false;
    bool placed = false;
    qsizetype firstHeading = -1;
    for (const QString& line : lines) {
        const QString text = line.trimmed();
        if (text.startsWith(u'[')) {
            inside = text == heading;
            if (inside && firstHeading < 0) {
                firstHeading = result.size();
            }
        } else if (inside && text.contains(u'=') && text.section(u'=', 0, 0).trimmed() == key) {
            if (!std::exchange(placed, true)) {
                result << entry;
            }
            continue;
        }
        result << line;
    }
    if (!placed && firstHeading >= 0) {
        result.insert(firstHeading + 1, entry);
    } else if (!placed) {
        result << heading << entry;
    }
    return result;
}

/// The toolkit keeps what it has read of a file until its size or its time is another one. The
/// clock of files goes by several milliseconds at once, so each content that we write gets a time
/// of its own.
void setNewTime(const QString& path) {
    static QDateTime latest;
    const QDateTime time = QFileInfo(path).lastModified();
    if (latest.isValid() && time <= latest) {
        latest = latest.addMSecs(1);
        QFile file(path);
        if (openForReading(file)) {
            file.setFileTime(latest, QFileDevice::FileModificationTime);
        }
    } else {
        latest = time;
    }
}

} // namespace

QString getSetting(const QString& section, const QString& key) {
    const QString path = storePath();
    if (!canBeRead(path)) {
        return {};
    }
    // A hand-written text with a comma comes back as a list.
    return QSettings(path, QSettings::IniFormat)
        .value(address(section, key))
        .toStringList()
        .join(u", "_s);
}

bool saveSetting(const QString& section, const QString& key, const QString& value) {
    // Not by the toolkit: it waits for locks that a killed program has left, and on a disk that is
    // full it puts a cut file in the place of a whole one.
    const QString path = storePath();
    QFile file(path);
    QStringList lines;
    if (openForReading(file)) {
        if (file.size() > largestFile) {
            return false; // none that this program has written
        }
        lines = QString::fromUtf8(file.readAll()).split(u'\n');
        file.close();
        if (lines.constLast().isEmpty()) {
            lines.removeLast();
        }
    }
    const auto store = [&path](const QStringList& content) {
        if (writeWholeFile(path, (content.join(u'\n') + u'\n').toUtf8())) {
            return false;
        }
        setNewTime(path);
        return true;
    };
    if (!QDir().mkpath(QFileInfo(path).path()) || !store(changed(lines, section, key, value))) {
        return false;
    }
    // A file so damaged that the toolkit finds something else in it begins anew.
    return getSetting(section, key) == value || store(changed({}, section, key, value));
}

QString readFastStart() {
    const QString value = getSetting(u"Options"_s, u"FastStart"_s);
    return value.isEmpty() ? u"TRUE"_s : value;
}

} // namespace quor
