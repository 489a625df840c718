#include "export/TestExportBatch.h"

#include "core/Clock.h"
#include "export/ExportBatch.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const char* const options =
    "2\r\n0\r\n16711680\r\n255\r\n65280\r\n65535\r\n255\r\n65280\r\n65535\r\n";

/// A folder, a batch run in it and what it said.
class Batch {
  public:
    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write the test's own file");
        }
        return file.fileName();
    }
    [[nodiscard]] QString person() const {
        return write(u"Anna.bio"_s,
                     QByteArray("\"Anna R.\"\r\n#1981-12-25#\r\n#2004-03-15#\r\n") + options);
    }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QStringList files(const QString& folder) const {
        return QDir(path(folder)).entryList(QDir::Files, QDir::Name);
    }

    int run(const BatchRequest& request) {
        output.clear();
        errors.clear();
        QTextStream outputStream(&output);
        QTextStream errorStream(&errors);
        return exportBatch(request, outputStream, errorStream);
    }

    QString output;
    QString errors;

  private:
    QTemporaryDir m_folder;
};

} // namespace

void TestExportBatch::aPersonsFile() {
    Batch batch;
    const QString out = batch.path(u"new/folder"_s);
    QCOMPARE(batch.run({.file = batch.person(), .outputFolder = out, .date = {}}), 0);
    QCOMPARE(batch.errors, QString());
    const QString prefix = u"Anna_15-03-2004_"_s; // the file's base name, and its own date
    const QString picture = u": Operazione eseguita correttamente\n"_s;
    QString expected = out + u'/' + prefix + u"grafico.png"_s + picture;
    for (int n = 0; n < 4; ++n) {
        expected += out + u'/' + prefix + u"StatoSettimana%1.png"_s.arg(n) + picture;
    }
    expected += out + u'/' + prefix + u"Riepilogo.html: Operazione completata\n"_s;
    QCOMPARE(batch.output, expected);
    QCOMPARE(batch.files(u"new/folder"_s).size(), 6);
    QCOMPARE(QImage(out + u'/' + prefix + u"grafico.png"_s).size(), QSize(1523, 635));
}

void TestExportBatch::forPrint() {
    Batch batch;
    const QString out = batch.path(u"out"_s);
    QCOMPARE(batch.run({.file = batch.person(), .outputFolder = out, .forPrint = true, .date = {}}),
             0);
    QCOMPARE(batch.files(u"out"_s).filter(u"Anna_15-03-2004_stampa_"_s).size(), 6);
    const QString prefix = out + u"/Anna_15-03-2004_stampa_"_s;
    QCOMPARE(QImage(prefix + u"grafico.png"_s).size(), QSize(635, 449));
    QCOMPARE(QImage(prefix + u"StatoSettimana0.png"_s).size(), QSize(627, 112));
    QCOMPARE(QImage(prefix + u"StatoSettimana1.png"_s).size(), QSize(205, 112));
}

void TestExportBatch::anotherDate() {
    const FixedClock clock(QDate(2026, 11, 21));
    Batch batch;
    const QString out = batch.path(u"out"_s);
    QCOMPARE(batch.run({.file = batch.person(), .outputFolder = out, .date = u"2020-02-29"_s}), 0);
    QVERIFY(batch.files(u"out"_s).contains(u"Anna_29-02-2020_Riepilogo.html"_s));
    QCOMPARE(batch.run({.file = batch.person(), .outputFolder = out, .date = u"oggi"_s}), 0);
    QVERIFY(batch.files(u"out"_s).contains(u"Anna_21-11-2026_Riepilogo.html"_s));
}

void TestExportBatch::wrongRequests_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); // null: there is no such file
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("message");
    const QByteArray good = QByteArray("\"Anna\"\r\n#1981-12-25#\r\n#2004-03-15#\r\n") + options;
    QTest::newRow("missing") << u"a.bio"_s << QByteArray() << u"out"_s << QString()
                             << u"il file non esiste: "_s;
    QTest::newRow("nobody in it") << u"a.bio"_s << QByteArray("hello\n") << u"out"_s << QString()
                                  << u"il file non si può leggere: "_s;
    QTest::newRow("another kind")
        << u"a.txt"_s << good << u"out"_s << QString()
        << u"il file non è né un bioritmo (.bio) né un sistema (.brs): "_s;
    QTest::newRow("no date") << u"a.bio"_s << good << u"out"_s << u"domani"_s
                             << u"la data non è valida: domani"_s;
    QTest::newRow("no folder") << u"a.bio"_s << good << u"a.bio/out"_s << QString()
                               << u"la cartella non si può creare: "_s;
    QTest::newRow("missing system")
        << u"a.brs"_s << QByteArray() << u"out"_s << QString() << u"il file non esiste: "_s;
}

void TestExportBatch::wrongRequests() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, folder);
    QFETCH(QString, date);
    QFETCH(QString, message);
    Batch batch;
    const QString file = content.isNull() ? batch.path(name) : batch.write(name, content);
    QCOMPARE(batch.run({.file = file, .outputFolder = batch.path(folder), .date = date}), 1);
    QCOMPARE(batch.output, QString());
    QVERIFY2(batch.errors.startsWith(u"quor: "_s + message), qPrintable(batch.errors));
    QCOMPARE(batch.errors.count(u'\n'), 1);
    QVERIFY(!QFile::exists(batch.path(u"out"_s)));

    QVERIFY(QDir().mkpath(batch.path(u"folder.bio"_s)));
    QCOMPARE(batch.run({.file = batch.path(u"folder.bio"_s), .outputFolder = {}, .date = {}}), 1);
    QVERIFY(batch.errors.startsWith(u"quor: il file non si può leggere: "_s));
}

void TestExportBatch::failuresGoToTheErrors() {
    Batch batch;
    const QString out = batch.path(u"out"_s);
    QVERIFY(QDir().mkpath(out + u"/Anna_15-03-2004_grafico.png"_s)); // a folder in the way
    QCOMPARE(batch.run({.file = batch.person(), .outputFolder = out, .date = {}}), 1);
    QCOMPARE(batch.output.count(u'\n'), 5);
    QCOMPARE(batch.errors, out + u"/Anna_15-03-2004_grafico.png: Errore: creazione del file "
                                 u"impossibile\nquor: 1 errori rilevati!\n"_s);
}

void TestExportBatch::aListThatCannotBeWritten() {
    const Batch batch;
    QFile full(u"/dev/full"_s);
    QVERIFY(full.open(QIODevice::WriteOnly));
    QTextStream output(&full);
    QString said;
    QTextStream errors(&said);
    QCOMPARE(exportBatch({.file = batch.person(), .outputFolder = batch.path(u"out"_s), .date = {}},
                         output, errors),
             1);
    QCOMPARE(said, u"quor: l'elenco dei file non si può scrivere sullo standard output\n"_s);
    QCOMPARE(batch.files(u"out"_s).size(), 6); // which is what was asked for
}

void TestExportBatch::whatATerminalWouldObey() {
    Batch batch;
    const QString out = batch.path(u"a\u202Eb\x1b[2J"_s);
    QCOMPARE(batch.run({.file = batch.person(), .outputFolder = out, .date = {}}), 0);
    QCOMPARE(batch.output.count(u"/a?b?[2J/Anna_15-03-2004_"_s), 6);
    QVERIFY(!batch.output.contains(QChar(0x202E)) && !batch.output.contains(u'\x1b'));
}

void TestExportBatch::aSystemsFile() {
    Batch batch;
    const QString file = batch.write(
        u"Casa.brs"_s, QByteArray("2\r\n\"Anna\"\r\n#1981-12-25#\r\n\"Bruno\"\r\n#1979-01-02#\r\n"
                                  "#2004-03-15#\r\n") +
                           options);
    QCOMPARE(batch.run({.file = file, .outputFolder = batch.path(u"out"_s), .date = {}}), 0);
    QCOMPARE(batch.output.count(u'\n'), 12);
    QCOMPARE(batch.files(u"out"_s).size(), 12);
    QVERIFY(batch.files(u"out"_s).contains(u"Casa_Bruno_15-03-2004_Riepilogo.html"_s));

    // Ten members are announced, and lines for one and a half are there.
    const QString damaged =
        batch.write(u"Rotto.brs"_s, "10\r\n\"Anna\"\r\n#1981-12-25#\r\n\"Bruno\"\r\n");
    QCOMPARE(batch.run({.file = damaged, .outputFolder = batch.path(u"out3"_s), .date = {}}), 0);
    QCOMPARE(batch.files(u"out3"_s).size(), 12);

    const QString empty =
        batch.write(u"Vuoto.brs"_s, QByteArray("0\r\n#2004-03-15#\r\n") + options);
    QCOMPARE(batch.run({.file = empty, .outputFolder = batch.path(u"out2"_s), .date = {}}), 1);
    QVERIFY(batch.errors.startsWith(u"quor: il sistema non contiene nessuna persona: "_s));
}

} // namespace quor::test
