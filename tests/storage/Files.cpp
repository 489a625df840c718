#include "storage/Files.h"

#include <QFile>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quor::test {

QString Files::write(const QByteArray& bytes) const {
    const QString file = path(u"file"_s);
    QFile device(file);
    if (!device.open(QIODevice::WriteOnly) || device.write(bytes) != bytes.size()) {
        qFatal("cannot write the test's own file");
    }
    return file;
}

QByteArray Files::read(const QString& file) {
    QFile device(file);
    return device.open(QIODevice::ReadOnly) ? device.readAll() : QByteArray("unreadable");
}

FullDisk::FullDisk(rlim_t bytes)
    : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    if (getrlimit(RLIMIT_FSIZE, &m_old) != 0) {
        qFatal("cannot ask for the limit on the size of files");
    }
    const rlimit tight{.rlim_cur = bytes, .rlim_max = m_old.rlim_max};
    if (setrlimit(RLIMIT_FSIZE, &tight) != 0) {
        qFatal("cannot limit the size of files");
    }
}

FullDisk::~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_old);
    std::signal(SIGXFSZ, m_oldHandler);
}

QByteArray binaryBytes(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>((i * 7919 + i / 251) % 256);
    }
    return bytes;
}

QStringList fields(const Biorhythm& biorhythm) {
    QStringList texts{biorhythm.name, QString::number(biorhythm.birthDate),
                      QString::number(biorhythm.calculationDate),
                      QString::number(biorhythm.dayIndexPosition),
                      QString::number(biorhythm.graphDaysAdjust)};
    for (const Colour colour : biorhythm.curveColours) {
        texts << QString::number(colour);
    }
    for (const Colour colour : biorhythm.weeklyColours) {
        texts << QString::number(colour);
    }
    texts.removeAt(9);  // the fifth curve colour, which no file holds
    texts.removeLast(); // the fourth colour of the week
    return texts;
}

} // namespace quor::test
