#include "toolkit/TestSettingsStore.h"

#include "toolkit/SettingsStore.h"

#include "support/Hermetic.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

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

void TestSettingsStore::theFileIsNamedAfterTheProgram() {
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("[Options]\nFastStart=FALSE\n"));
}

} // namespace quor::test
