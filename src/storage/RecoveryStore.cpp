#include "storage/RecoveryStore.h"

#include "storage/BiorhythmFile.h"
#include "storage/LineNotation.h"
#include "storage/SystemFile.h"
#include "storage/WholeFile.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr mode_t onlyTheUserEnters = 0700;
constexpr mode_t onlyTheUserReads = 0600;

QString mark() {
    return u"Quor: recupero"_s;
}

QString endingOf(bool isSystem) {
    return isSystem ? u"brs"_s : u"bio"_s;
}

QByteArray checkSumLine(QByteArrayView bytes) {
    QCryptographicHash sum(QCryptographicHash::Sha1);
    sum.addData(bytes);
    return '"' + sum.result().toHex() + "\"\r\n";
}

/// Takes the last line away. Nothing when there is none that is ended.
std::optional<QByteArrayView> takeLastLine(QByteArrayView& bytes) {
    if (!bytes.endsWith("\r\n")) {
        return std::nullopt;
    }
    const qsizetype begin = bytes.chopped(2).lastIndexOf('\n') + 1;
    const QByteArrayView line = bytes.sliced(begin);
    bytes = bytes.first(begin);
    return line;
}

/// Whose path it is, as the file system has it; nothing but an absolute path counts.
QString decodedPath(const QString& text) {
    const QString path = QFile::decodeName(QByteArray::fromPercentEncoding(text.toLatin1()));
    return QDir::isAbsolutePath(path) && !path.contains(QChar(u'\0')) ? path : QString();
}

/// Nothing for a file that is no regular one, cannot be read or is larger than any that is read
/// again.
std::optional<QByteArray> bytesOf(const QString& path) {
    QFile file(path);
    if (!openForReading(file) || file.size() > LineReader::maximumRead) {
        return std::nullopt;
    }
    return file.readAll();
}

/// What was not saved before the end may have been saved after all, just before it or since.
bool standsInItsFile(const UnsavedWork& work) {
    return !work.path.isEmpty() && QFileInfo(work.path).size() == work.content.size() &&
           bytesOf(work.path) == work.content;
}

/// The work in a file of a run, and whose it is; nothing for a file that is not whole or holds
/// nobody.
std::optional<LeftWork> leftWork(const QString& file, bool isSystem) {
    auto whole = unsealedWork(bytesOf(file).value_or(QByteArray()), isSystem);
    if (!whole) {
        return std::nullopt;
    }
    LeftWork left{
        .work = *std::move(whole), .file = file, .changed = QFileInfo(file).lastModified()};
    QBuffer content(&left.work.content);
    resetToStartUp(left.data);
    if (!content.open(QIODevice::ReadOnly) ||
        (isSystem ? readSystem(content, left.data) : readBiorhythm(content, left.data.biorhythm))) {
        return std::nullopt;
    }
    left.name = isSystem ? QString() : left.data.biorhythm.name;
    left.members = left.data.state.systemCount;
    const QFileInfo own(left.work.path);
    left.fileIsNewer =
        !left.work.path.isEmpty() && own.isFile() && own.lastModified() > left.changed;
    const bool somebody = isSystem ? left.members > 0 : left.data.biorhythm.isPresent();
    return somebody ? std::optional(std::move(left)) : std::nullopt;
}

/// Takes the work of a dead run into what was found, together with its lock. @return whether
/// something remains in the folder under the run's name
bool take(const QString& file, bool isSystem, std::optional<RunLock>& lock,
          RecoveryStore::Left& found) {
    auto left = leftWork(file, isSystem);
    if (left && standsInItsFile(left->work)) {
        return !QFile::remove(file);
    }
    if (left) {
        left->lock = std::exchange(lock, std::nullopt);
        found.works.push_back(*std::move(left));
        return true;
    }
    const QString aside = file + u".danneggiato"_s;
    if (!QFile::rename(file, aside)) {
        return true;
    }
    found.damaged << aside;
    return false;
}

bool writeAll(int descriptor, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const auto written =
            write(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (written <= 0) {
            return false;
        }
        bytes = bytes.sliced(written);
    }
    return true;
}

/// Writes beside the file and takes its place. After a failure the file is as it was.
bool putInPlace(const QString& path, const QString& beside, const QByteArray& bytes) {
    const QByteArray temporary = QFile::encodeName(beside);
    unlink(temporary.constData());
    const int descriptor =
        open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
             onlyTheUserReads);
    if (descriptor < 0) {
        return false;
    }
    const bool written = writeAll(descriptor, bytes);
    const bool closed = close(descriptor) == 0; // some file systems report a full disk here
    if (written && closed &&
        rename(temporary.constData(), QFile::encodeName(path).constData()) == 0) {
        return true;
    }
    unlink(temporary.constData());
    return false;
}

bool makeFolder(const QString& folder) {
    const QByteArray name = QFile::encodeName(folder);
    if (mkdir(name.constData(), onlyTheUserEnters) != 0) {
        QDir().mkpath(QFileInfo(folder).path());
        mkdir(name.constData(), onlyTheUserEnters);
    }
    if (!QFileInfo(folder).isDir()) {
        return false; // something else of this name stays as it is
    }
    chmod(name.constData(), onlyTheUserEnters); // one that was there already
    return true;
}

} // namespace

QByteArray sealedWork(const UnsavedWork& work) {
    LineWriter trailer;
    trailer.writeString(mark());
    trailer.writeString(QString::fromLatin1(QFile::encodeName(work.path).toPercentEncoding("/")));
    const QByteArray bytes = work.content + trailer.bytes();
    return bytes + checkSumLine(bytes);
}

std::optional<UnsavedWork> unsealedWork(const QByteArray& file, bool isSystem) {
    QByteArrayView bytes(file);
    const auto sum = takeLastLine(bytes);
    if (!sum || *sum != checkSumLine(bytes)) {
        return std::nullopt;
    }
    const auto pathLine = takeLastLine(bytes);
    const auto markLine = takeLastLine(bytes);
    if (!pathLine || !markLine || parseString(*markLine) != mark()) {
        return std::nullopt;
    }
    return UnsavedWork{.isSystem = isSystem,
                       .content = bytes.toByteArray(),
                       .path = decodedPath(parseString(*pathLine).value_or(QString()))};
}

std::optional<UnsavedWork> unsavedWork(const Program& program) {
    const AppState& state = program.state;
    if (!state.modified) {
        return std::nullopt;
    }
    const auto absolute = [](const QString& path) {
        return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
    };
    if (state.systemOpen) {
        return state.systemCount <= 0
                   ? std::nullopt
                   : std::optional(UnsavedWork{.isSystem = true,
                                               .content = systemFileContent(program),
                                               .path = absolute(state.systemFilePath)});
    }
    return !program.biorhythm.isPresent()
               ? std::nullopt
               : std::optional(UnsavedWork{.isSystem = false,
                                           .content = biorhythmFileContent(program.biorhythm),
                                           .path = absolute(state.filePath)});
}

bool isSameWork(const Program& one, const Program& other) {
    const AppState& state = one.state;
    const AppState& otherState = other.state;
    if (!state.modified && !otherState.modified) {
        return true;
    }
    return state.modified == otherState.modified && state.systemOpen == otherState.systemOpen &&
           state.filePath == otherState.filePath &&
           state.systemFilePath == otherState.systemFilePath &&
           state.systemCount == otherState.systemCount &&
           biorhythmFileContent(one.biorhythm) == biorhythmFileContent(other.biorhythm) &&
           (!state.systemOpen || state.systemMembers == otherState.systemMembers);
}

void LeftWork::open(Program& program) const {
    if (work.isSystem) {
        takeSystem(data, program);
        program.state.systemFilePath = work.path;
    } else {
        takeBiorhythm(data, program);
        program.state.filePath = work.path;
    }
    program.state.modified = true;
}

RecoveryStore::RecoveryStore(QString folder)
    : m_folder(std::move(folder)) {}

QString RecoveryStore::path(const QString& run, const QString& ending) const {
    return QDir(m_folder).filePath(run + u'.' + ending);
}

/// Makes the folder and the run's lock, where they are not there yet.
bool RecoveryStore::begin() {
    if (m_run) {
        return true;
    }
    if (!makeFolder(m_folder)) {
        return false;
    }
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    auto lock = RunLock::take(path(name, u"lock"_s));
    if (!lock) {
        return false;
    }
    m_run = Run{.name = name, .lock = *std::move(lock)};
    return true;
}

bool RecoveryStore::write(const UnsavedWork& work) {
    if (m_run && m_run->written == work) {
        return true;
    }
    if (m_run && m_run->written && m_run->written->isSystem != work.isSystem) {
        clear(); // what was open has been closed: a run never leaves two files
    }
    if (!begin()) {
        return false;
    }
    if (!putInPlace(path(m_run->name, endingOf(work.isSystem)), path(m_run->name, u"new"_s),
                    sealedWork(work))) {
        if (!m_run->written) {
            clear();
        }
        return false;
    }
    m_run->written = work;
    return true;
}

void RecoveryStore::clear() {
    if (!m_run) {
        return;
    }
    if (m_run->written) {
        QFile::remove(path(m_run->name, endingOf(m_run->written->isSystem)));
    }
    m_run->lock.removeFile(); // last: work without a lock would be taken for a dead run's
    m_run.reset();
}

RecoveryStore::Left RecoveryStore::left() const {
    Left found;
    QSet<QString> runs;
    const QStringList filters{u"*.bio"_s, u"*.brs"_s, u"*.new"_s, u"*.lock"_s};
    for (const QFileInfo& file :
         QDir(m_folder).entryInfoList(filters, QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        runs.insert(file.completeBaseName());
    }
    for (const QString& run : std::as_const(runs)) {
        auto lock = RunLock::take(path(run, u"lock"_s));
        if (!lock) {
            continue; // it lives
        }
        QFile::remove(path(run, u"new"_s));
        bool remains = false;
        for (const bool isSystem : {false, true}) {
            const QString file = path(run, endingOf(isSystem));
            const QFileInfo info(file);
            if (!info.isFile() || info.isSymLink()) {
                continue;
            }
            if (lock) {
                remains |= take(file, isSystem, lock, found);
            } else {
                remains = true; // one at a time: the other one is found at a later start
            }
        }
        if (lock && !remains) {
            lock->removeFile();
        }
    }
    std::ranges::sort(found.works, std::ranges::greater(), &LeftWork::changed);
    return found;
}

void RecoveryStore::adopt(LeftWork&& work) {
    clear();
    m_run = Run{.name = QFileInfo(work.file).completeBaseName(),
                .lock = *std::move(work.lock),
                .written = std::move(work.work)};
}

void RecoveryStore::remove(LeftWork&& work) {
    LeftWork gone(std::move(work));
    if (QFile::remove(gone.file)) {
        gone.lock->removeFile(); // last: work without a lock would be taken for a dead run's
    }
}

} // namespace quor
