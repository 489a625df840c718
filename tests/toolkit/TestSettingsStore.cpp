#include "toolkit/TestSettingsStore.h"

#include "toolkit/SettingsStore.h"

#include "support/Hermetic.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString settingsFile() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(u"quor.ini"_s);
}

} // namespace

void TestSettingsStore::missingMeansTrue() {
    QFile::remove(settingsFile());
    QCOMPARE(getSetting(u"Options"_s, u"FastStart"_s), QString());
    QCOMPARE(readFastStart(), u"TRUE"_s);
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, {}));
    QCOMPARE(readFastStart(), u"TRUE"_s);
}

void TestSettingsStore::storedTextIsKeptAsItStands() {
    for (const QString& text : {u"FALSE"_s, u"TRUE"_s, u"false"_s, u"forse, sì"_s}) {
        QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, text));
        QCOMPARE(readFastStart(), text);
    }
    // Written by hand, without the quotes that the store itself would set.
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Options]\nFastStart=forse, no\n");
    file.close();
    QCOMPARE(readFastStart(), u"forse, no"_s);
}

void TestSettingsStore::whatAHandHasWrittenStays() {
    const auto changed = [](const QByteArray& before) {
        QFile file(settingsFile());
        if (!file.open(QIODevice::WriteOnly) || file.write(before) != before.size()) {
            return QByteArray("cannot be prepared");
        }
        file.close();
        const bool saved = saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s);
        return saved && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not saved");
    };
    QCOMPARE(
        changed("; mine\n[Other]\nFastStart=x\n\n[Options]\nA=1\nFastStart = TRUE\nB=2\n[Z]\n"),
        "; mine\n[Other]\nFastStart=x\n\n[Options]\nA=1\nFastStart=FALSE\nB=2\n[Z]\n");
    QCOMPARE(changed("[Options]\r\nA=1\r\n[Z]\r\nFastStart=x"),
             "[Options]\r\nFastStart=FALSE\nA=1\r\n[Z]\r\nFastStart=x\n");
    QCOMPARE(changed("[Other]\nA=1"), "[Other]\nA=1\n[Options]\nFastStart=FALSE\n");
    QCOMPARE(changed("\n"), "\n[Options]\nFastStart=FALSE\n");
    QCOMPARE(changed(""), "[Options]\nFastStart=FALSE\n");
    QCOMPARE(changed("; " + QByteArray(70'000, 'x')), "not saved"); // nothing that is ours
    QVERIFY(QFile::remove(settingsFile()));
}

void TestSettingsStore::anyTextComesBack_data() {
    QTest::addColumn<QString>("text");
    for (const QString& text :
         {u"una, due"_s, u"\"virgolette\""_s, u"C:\\cartella\\nuova"_s, u" spazi "_s, u"a=b;c#d"_s,
          u"[Options]"_s, u"riga\nFastStart=x"_s, u"èa1"_s, u"\u20ACf9\u202E😀"_s, u"@Invalid()"_s,
          u"%20%"_s, u"\x01\x1b"_s, u"0123"_s}) {
        QTest::addRow("%s", qPrintable(text)) << text;
    }
}

void TestSettingsStore::anyTextComesBack() {
    QFETCH(QString, text);
    QVERIFY(QFile::remove(settingsFile()) || !QFile::exists(settingsFile()));
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, text));
    QCOMPARE(getSetting(u"Options"_s, u"FastStart"_s), text);
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"TRUE"_s));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("[Options]\nFastStart=TRUE\n"));
}

/// Quicker than the clock of files, and of one size.
void TestSettingsStore::whatWasSavedLastComesBack() {
    for (int i = 0; i < 200; ++i) {
        const QString text = QString::number(1000 + i);
        QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, text));
        QCOMPARE(getSetting(u"Options"_s, u"FastStart"_s), text);
        if (i % 3 == 0) {
            QVERIFY(QFile::remove(settingsFile()));
        }
    }
    QVERIFY(QFile::remove(settingsFile()));
}

void TestSettingsStore::aDamagedStoreCanBeWritten_data() {
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("no line of the notation") << QByteArray("\x02");
    QTest::newRow("in a section") << QByteArray("[Options]\nFastStart\n=\nAltro=x\n");
    QTest::newRow("the section twice")
        << QByteArray("[Options]\nF=1\n[Options]\nFastStart=TRUE\nFastStart=TRUE\n");
    QTest::newRow("an open section") << QByteArray("[Options\n");
}

void TestSettingsStore::aDamagedStoreCanBeWritten() {
    QFETCH(QByteArray, stored);
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(stored);
    file.close();
    QCOMPARE(readFastStart(), u"TRUE"_s);
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    QCOMPARE(readFastStart(), u"FALSE"_s);
    QCOMPARE(getSetting(u"Options"_s, u"Altro"_s),
             stored.contains("Altro") ? u"x"_s : QString()); // another setting stays
    QVERIFY(file.remove());
}

void TestSettingsStore::whatIsNoFile() {
    QVERIFY(QFile::remove(settingsFile()));
    QVERIFY(QDir().mkpath(settingsFile()));
    QVERIFY(!saveSetting(u"Options"_s, u"FastStart"_s, u"TRUE"_s));
    QVERIFY(QDir().rmdir(settingsFile()));

    // Whoever opens a pipe to read waits for the one who writes.
    const QByteArray path = QFile::encodeName(settingsFile());
    QCOMPARE(mkfifo(path.constData(), 0600), 0);
    QCOMPARE(readFastStart(), u"TRUE"_s);
    QVERIFY(!saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    struct stat found {};
    QCOMPARE(stat(path.constData(), &found), 0);
    QVERIFY(S_ISFIFO(found.st_mode));
    QVERIFY(QFile::remove(settingsFile()));
}

void TestSettingsStore::aHugeFileIsNotOurs() {
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("[Options]\nFastStart=FALSE\n") > 0);
    constexpr qint64 huge = 1LL << 40; // more than any memory; it takes no room on the disk
    if (!file.resize(huge)) {
        QVERIFY(file.remove());
        QSKIP("the file system has no files with holes");
    }
    file.close();
    QCOMPARE(readFastStart(), u"TRUE"_s);
    QVERIFY(!saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    QCOMPARE(file.size(), huge);
    QVERIFY(file.remove());
}

void TestSettingsStore::theFileIsNamedAfterTheProgram() {
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("[Options]\nFastStart=FALSE\n"));
}

} // namespace quor::test
