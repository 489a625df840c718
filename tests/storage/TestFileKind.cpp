#include "storage/TestFileKind.h"

#include "storage/FileKind.h"

#include "support/Hermetic.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestFileKind::endings_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("byEnding");
    const auto row = [](const QString& path, FileKind kind, FileKind byEnding) {
        QTest::newRow(qPrintable(path))
            << path << static_cast<int>(kind) << static_cast<int>(byEnding);
    };
    row(u"a.bio"_s, FileKind::biorhythm, FileKind::biorhythm);
    row(u"a.BIO"_s, FileKind::biorhythm, FileKind::biorhythm);
    row(u"a.Brs"_s, FileKind::system, FileKind::system);
    row(u".brs"_s, FileKind::system, FileKind::system);
    row(u"abio"_s, FileKind::biorhythm, FileKind::other);
    row(u"a.xbrs"_s, FileKind::system, FileKind::other);
    row(u"bio"_s, FileKind::biorhythm, FileKind::other);
    row(u"a.txt"_s, FileKind::other, FileKind::other);
    row(u"io"_s, FileKind::other, FileKind::other);
    row({}, FileKind::other, FileKind::other);
}

void TestFileKind::endings() {
    QFETCH(QString, path);
    QFETCH(int, kind);
    QFETCH(int, byEnding);
    QCOMPARE(static_cast<int>(fileKind(path)), kind);
    QCOMPARE(static_cast<int>(fileKindByEnding(path)), byEnding);
}

} // namespace quor::test
