#include "storage/TestWholeFile.h"

#include "storage/Files.h"
#include "storage/WholeFile.h"

#include "support/Hermetic.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QTemporaryDir>

#include <algorithm>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestWholeFile::theNewFileTakesTheOldOnesPlace() {
    const Files files;
    const QString path = files.write("old and longer");
    QCOMPARE(writeWholeFile(path, "new"), std::nullopt);
    QCOMPARE(Files::read(path), "new");
}

void TestWholeFile::theOldFileOutlivesAFullDisk() {
    const Files files;
    const QString path = files.write("old");
    {
        const FullDisk full(64);
        const auto reason = writeWholeFile(path, QByteArray(1000, 'x'));
        QVERIFY(reason);
        QVERIFY(!reason->isEmpty());
    }
    QCOMPARE(Files::read(path), "old");
    QCOMPARE(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void TestWholeFile::readersAreKeptOrNone() {
    const Files files;
    const QString path = files.write("old");
    const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | others));
    QCOMPARE(writeWholeFile(path, "new"), std::nullopt);
    QCOMPARE(QFileInfo(path).permissions() & others, others);
    QCOMPARE(writeWholeFile(path, "newer", Readers::onlyUser), std::nullopt);
    QCOMPARE(QFileInfo(path).permissions() & others, QFile::Permissions());
}

void TestWholeFile::onlyFilesAreOpened() {
    const Files files;
    QFile file(files.write("content"));
    QVERIFY(openForReading(file));
    QCOMPARE(file.readAll(), "content");
    QVERIFY(QDir().mkdir(files.path(u"folder"_s)));
    QFile folder(files.path(u"folder"_s));
    QVERIFY(!openForReading(folder));
    QFile missing(files.path(u"missing"_s));
    QVERIFY(!openForReading(missing));
    const QString pipe = files.path(u"pipe"_s);
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QFile fifo(pipe);
    QVERIFY(!openForReading(fifo)); // nobody fills it: opening would wait for ever
}

void TestWholeFile::everyPieceIsWritten() {
    // Takes seven bytes at a time, so many in all.
    class Narrow : public QIODevice {
      public:
        explicit Narrow(qsizetype room)
            : m_room(room) {}
        QByteArray taken;

      protected:
        qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
        qint64 writeData(const char* data, qint64 size) override {
            const qint64 part = std::min({size, qint64{7}, m_room - taken.size()});
            taken.append(data, part);
            if (part == 0) {
                setErrorString(u"pieno"_s);
            }
            return part > 0 ? part : -1;
        }

      private:
        qsizetype m_room;
    };
    const QByteArray bytes(100, 'x');
    Narrow enough(100);
    QVERIFY(enough.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QVERIFY(writeAll(enough, bytes));
    QCOMPARE(enough.taken, bytes);
    Narrow small(90);
    QVERIFY(small.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QVERIFY(!writeAll(small, bytes));
    QCOMPARE(small.errorString(), u"pieno"_s);
}

void TestWholeFile::nothingButAFileMakesWay() {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe"_s);
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(QFile::link(u"pipe"_s, folder.filePath(u"link"_s)));
    QVERIFY(QDir(folder.path()).mkdir(u"folder"_s));
    for (const QString& name : {u"pipe"_s, u"link"_s, u"folder"_s}) {
        const auto fault = writeWholeFile(folder.filePath(name), "new");
        QVERIFY2(fault && !fault->isEmpty(), qPrintable(name));
    }
    struct stat found {};
    QCOMPARE(lstat(QFile::encodeName(pipe).constData(), &found), 0);
    QVERIFY(S_ISFIFO(found.st_mode));
    QVERIFY(QFileInfo(folder.filePath(u"link"_s)).isSymLink());
    // What a link leads to does, where it is a file.
    QFile file(folder.filePath(u"file"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(QFile::link(u"file"_s, folder.filePath(u"to a file"_s)));
    QCOMPARE(writeWholeFile(folder.filePath(u"to a file"_s), "new"), std::nullopt);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("new"));
}

} // namespace quor::test
