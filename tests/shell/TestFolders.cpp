#include "shell/TestFolders.h"

#include "shell/Folders.h"

#include "support/Hermetic.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString dataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/quor/UserFiles"_s;
}

} // namespace

void TestFolders::besideTheProgramWhenWritable() {
    const QTemporaryDir program;
    const Folders folders = prepareFolders(program.path());
    QCOMPARE(folders.userFiles, program.filePath(u"UserFiles"_s));
    QCOMPARE(folders.exports, program.filePath(u"UserFiles/Esportazioni"_s));
    QVERIFY(QDir(folders.exports).exists());
}

void TestFolders::inTheDataFolderOtherwise() {
    // A folder that is not there cannot be written, whoever runs the test.
    const QTemporaryDir program;
    const Folders folders = prepareFolders(program.filePath(u"gone"_s));
    QCOMPARE(folders.userFiles, dataFolder());
    QCOMPARE(folders.exports, dataFolder() + u"/Esportazioni"_s);
    QVERIFY(QDir(folders.exports).exists());
}

void TestFolders::installedForEverybody() {
    QCOMPARE(prepareFolders(u"/usr/bin"_s).userFiles, dataFolder());
    QVERIFY(!QDir(u"/usr/bin/UserFiles"_s).exists());
}

void TestFolders::existingFoldersAreKept() {
    const QTemporaryDir program;
    QVERIFY(QDir(program.path()).mkpath(u"UserFiles/Esportazioni"_s));
    QFile file(program.filePath(u"UserFiles/mine.bio"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(prepareFolders(program.path()).userFiles, program.filePath(u"UserFiles"_s));
    QVERIFY(file.exists());
}

void TestFolders::stateLiesInTheStateHome() {
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    const QTemporaryDir home;
    qputenv("XDG_STATE_HOME", home.path().toLocal8Bit());
    QCOMPARE(stateFolder(), home.filePath(u"quor"_s));
    QVERIFY(!QDir(stateFolder()).exists());
    for (const char* useless : {"", "state"}) {
        qputenv("XDG_STATE_HOME", useless);
        QCOMPARE(stateFolder(), QDir::homePath() + u"/.local/state/quor"_s);
    }
    qputenv("XDG_STATE_HOME", before);
}

} // namespace quor::test
