#include "storage/TestWholeFile.h"

#include "storage/Files.h"
#include "storage/WholeFile.h"

#include "support/Hermetic.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

void TestWholeFile::nothingTakesThePlaceOfWhatIsNoFile() {
    const Files files;
    const QString pipe = files.path(u"pipe"_s);
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(writeWholeFile(pipe, "new"));
    QVERIFY(!QFileInfo(pipe).isFile());
    QVERIFY(QDir().mkdir(files.path(u"folder"_s)));
    QVERIFY(writeWholeFile(files.path(u"folder"_s), "new"));
    QVERIFY(QFileInfo(files.path(u"folder"_s)).isDir());
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

} // namespace quor::test
