#include "storage/TestNamedFile.h"

#include "core/Clock.h"
#include "storage/NamedFile.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

class Folder {
  public:
    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write the test's own file");
        }
        return file.fileName();
    }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

  private:
    QTemporaryDir m_folder;
};

} // namespace

void TestNamedFile::aPersonInFreshData() {
    const FixedClock clock(QDate(2026, 11, 21));
    const Folder folder;
    Program program;
    program.state.systemOpen = true;
    program.biorhythm.birthDate = 5;
    const QString file = folder.write(u"Anna.BIO"_s, "\"Anna\"\r\n#1981-12-25#\r\nx\r\n");
    QVERIFY(!openNamedFile(file, program));
    QCOMPARE(program.biorhythm.name, u"Anna"_s);
    QCOMPARE(program.biorhythm.birthDate, toDateValue(QDate(1981, 12, 25)));
    QCOMPARE(program.biorhythm.calculationDate, today()); // the damaged line has a start's value
    QVERIFY(!program.state.systemOpen);
    QCOMPARE(program.state.filePath, file);
}

void TestNamedFile::aSystemIsOpen() {
    const Folder folder;
    Program program;
    const QString file = folder.write(
        u"Casa.brs"_s, "4\r\n\"Anna\"\r\n#1981-12-25#\r\nx\r\ny\r\n\"Bruno\"\r\nz\r\n");
    QVERIFY(!openNamedFile(file, program));
    QVERIFY(program.state.systemOpen);
    QCOMPARE(program.state.systemFilePath, file);
    // Two of the four have neither a name nor a birth; Bruno has a name.
    QCOMPARE(program.state.systemCount, std::int16_t{2});
    QCOMPARE(program.state.systemMembers.size(), std::size_t{2});
    QCOMPARE(program.state.systemMembers.at(1).name, u"Bruno"_s);
}

void TestNamedFile::faults_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); // null: there is no such file
    QTest::addColumn<QString>("fault");
    QTest::newRow("missing") << u"a.bio"_s << QByteArray() << u"il file non esiste: "_s;
    QTest::newRow("another kind")
        << u"a.txt"_s << QByteArray("x")
        << u"il file non è né un bioritmo (.bio) né un sistema (.brs): "_s;
    QTest::newRow("a folder") << u"."_s << QByteArray()
                              << u"il file non è né un bioritmo (.bio) né un sistema (.brs): "_s;
    QTest::newRow("empty") << u"a.bio"_s << QByteArray("")
                           << u"il file non si può leggere: %1 (il nome, alla riga 1, manca o è "
                              "danneggiato)"_s;
    QTest::newRow("no count") << u"a.brs"_s << QByteArray("tre\r\n")
                              << u"il file non si può leggere: %1 (alla riga 1 non c'è un numero "
                                 "di persone da 0 a 32767)"_s;
    QTest::newRow("no person") << u"a.bio"_s << QByteArray("\"\"\r\n#1899-12-30#\r\n")
                               << u"il file non contiene nessuna persona: "_s;
    QTest::newRow("empty system") << u"a.brs"_s << QByteArray("0\r\n")
                                  << u"il sistema non contiene nessuna persona: "_s;
    QTest::newRow("system of nobodies")
        << u"a.brs"_s << QByteArray("9\r\n") << u"il sistema non contiene nessuna persona: "_s;
}

void TestNamedFile::faults() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    const Folder folder;
    const QString file = content.isNull() ? folder.path(name) : folder.write(name, content);
    Program program;
    QCOMPARE(openNamedFile(file, program),
             std::optional(fault.contains(u"%1"_s) ? fault.arg(file) : fault + file));

    QVERIFY(QDir().mkpath(folder.path(u"dir.bio"_s)));
    QCOMPARE(openNamedFile(folder.path(u"dir.bio"_s), program),
             std::optional(u"il file non si può leggere: %1 (è una cartella)"_s.arg(
                 folder.path(u"dir.bio"_s))));
}

} // namespace quor::test
