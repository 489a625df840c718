#include "shell/StateFile.h"

#include "storage/LineNotation.h"
#include "storage/RunLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

// What a whole file can need: longer paths than the system knows do not exist.
constexpr qint64 largestFile = 131072;
constexpr qsizetype longestPath = 4096; // bytes
constexpr qsizetype longestPlace = 1024;

/// Another program holds the lock for one small file; who waits longer waits for a broken disk.
constexpr std::chrono::milliseconds longestWait(500);

const QString& frameSection() {
    static const QString name = u"[Frame]"_s;
    return name;
}

const QString& biorhythmSection() {
    static const QString name = u"[RecentBiorhythms]"_s;
    return name;
}

const QString& systemSection() {
    static const QString name = u"[RecentSystems]"_s;
    return name;
}

/// Nothing that would break a line or could not be shown in one.
bool isPlain(QChar character) {
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return character != QChar::ReplacementCharacter;
    }
}

bool fitsALine(const QString& path) {
    return path.toUtf8().size() <= longestPath && std::ranges::all_of(path, isPlain);
}

QByteArray decodePlace(const QString& text) {
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return decoded && (*decoded).size() <= longestPlace ? *decoded : QByteArray();
}

/// Not beyond the number of entries, and none twice.
void appendFile(QStringList& files, const QString& path) {
    const QString clean = QDir::cleanPath(path);
    if (files.size() < StateFile::recentCount && fitsALine(clean) && QDir::isAbsolutePath(clean) &&
        !files.contains(clean)) {
        files << clean;
    }
}

QString listed(const QStringList& files) {
    QString lines;
    for (qsizetype i = 0; i < files.size(); ++i) {
        lines += u"File%1="_s.arg(i + 1) + files[i] + u'\n';
    }
    return lines;
}

} // namespace

QStringList& StateFile::Contents::files(FileKind kind) {
    return kind == FileKind::system ? systems : biorhythms;
}

StateFile::StateFile(const QString& folder)
    : m_path(QDir(folder).filePath(u"stato.ini"_s)) {}

QStringList StateFile::recentFiles(FileKind kind) const {
    return read().files(kind);
}

void StateFile::addRecentFile(FileKind kind, const QString& path) const {
    if (!fitsALine(path)) {
        return;
    }
    const QString added = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    change([kind, &added](Contents& contents) {
        QStringList& files = contents.files(kind);
        files.removeAll(added);
        files.prepend(added);
        files.resize(std::min(files.size(), recentCount));
    });
}

void StateFile::removeRecentFile(FileKind kind, const QString& path) const {
    change([kind, &path](Contents& contents) { contents.files(kind).removeAll(path); });
}

void StateFile::clearRecentFiles(FileKind kind) const {
    change([kind](Contents& contents) { contents.files(kind).clear(); });
}

QByteArray StateFile::framePlace() const {
    return read().framePlace;
}

void StateFile::saveFramePlace(const QByteArray& place) const {
    change([&place](Contents& contents) { contents.framePlace = place; });
}

StateFile::Contents StateFile::parsed(const QByteArray& bytes) {
    Contents contents;
    QString section;
    for (const QString& line : QString::fromUtf8(bytes).split(u'\n')) {
        if (line.startsWith(u'[')) {
            section = line.trimmed();
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 0) {
            continue;
        }
        const QString value = line.sliced(equals + 1);
        if (section == frameSection()) {
            contents.framePlace = decodePlace(value);
        } else if (section == biorhythmSection()) {
            appendFile(contents.biorhythms, value);
        } else if (section == systemSection()) {
            appendFile(contents.systems, value);
        }
    }
    return contents;
}

QByteArray StateFile::written(const Contents& contents) {
    const QString text = frameSection() + u"\nPlace="_s +
                         QString::fromLatin1(contents.framePlace.toBase64()) + u"\n\n"_s +
                         biorhythmSection() + u'\n' + listed(contents.biorhythms) + u'\n' +
                         systemSection() + u'\n' + listed(contents.systems);
    return text.toUtf8();
}

StateFile::Contents StateFile::read() const {
    QFile file(m_path);
    if (!openForReading(file)) {
        return {};
    }
    return parsed(file.read(largestFile));
}

void StateFile::write(const Contents& contents) const {
    // Which files somebody opens is nobody else's affair. Where it cannot be written the old one
    // stays: it is only memory.
    (void)writeWholeFile(m_path, written(contents), Readers::onlyUser);
}

void StateFile::change(const std::function<void(Contents&)>& edit) const {
    if (!QDir().mkpath(QFileInfo(m_path).path())) {
        return;
    }
    // Gone with its process: what a killed program leaves behind keeps nobody waiting.
    auto lock = RunLock::wait(m_path + u".lock"_s, longestWait);
    if (!lock) {
        return;
    }
    const Contents before = read();
    Contents after = before;
    edit(after);
    if (after != before) {
        write(after);
    }
    lock->removeFile();
}

} // namespace quor
