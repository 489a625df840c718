#include "export/TestExportRun.h"

#include "export/ExportRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSet>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr QSize size(60, 40);

Program family(const QString& path) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Anna"_s;
    program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    program.state.systemOpen = true;
    program.state.systemFilePath = path;
    program.state.systemMembers = {{.name = u"Bruno"_s, .birthDate = 10'000},
                                   {.name = u"Carla"_s, .birthDate = 20'000}};
    program.state.systemCount = 2;
    return program;
}

QStringList filesIn(const QTemporaryDir& folder) {
    return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
}

ExportRequest everything(const QString& folder) {
    return {.graph = true,
            .weekly = true,
            .page = true,
            .variant = PageVariant::screen,
            .scope = ExportScope::wholeSystem,
            .folder = folder,
            .pictureSize = size};
}

std::vector<ExportResult> finish(ExportRun& run) {
    std::vector<ExportResult> results;
    while (!run.isOver()) {
        results.push_back(run.next());
    }
    return results;
}

} // namespace

void TestExportRun::stepsAndCaptions() {
    const QTemporaryDir folder;
    Program program = family(QString());
    ExportRequest request = everything(folder.path());
    ExportRun run(program, request);
    QCOMPARE(run.steps(), 12);
    const QStringList captions{u"Esportazione grafico in corso..."_s,
                               u"Esportazione grafico settimanale n°0 in corso..."_s,
                               u"Esportazione grafico settimanale n°1 in corso..."_s,
                               u"Esportazione grafico settimanale n°2 in corso..."_s,
                               u"Esportazione grafico settimanale n°3 in corso..."_s,
                               u"Esportazione HTML in corso..."_s};
    for (int step = 0; step < 12; ++step) {
        QCOMPARE(run.done(), step);
        QVERIFY(!run.isOver());
        QCOMPARE(run.caption(), captions.at(step % 6));
        (void)run.next();
    }
    QVERIFY(run.isOver());
    QCOMPARE(run.caption(), QString());

    request.scope = ExportScope::person;
    for (const auto& [graph, weekly, page, steps] : {std::tuple{true, false, false, 1},
                                                     {false, true, false, 4},
                                                     {true, false, true, 2},
                                                     {false, true, true, 5},
                                                     {true, true, false, 5}}) {
        request.graph = graph;
        request.weekly = weekly;
        request.page = page;
        QCOMPARE(ExportRun(program, request).steps(), steps);
    }
}

void TestExportRun::oneOfASystem() {
    const QTemporaryDir folder;
    Program program = family(QString());
    program.biorhythm.name = u"Bruno"_s;
    ExportRequest request = everything(folder.path());
    request.scope = ExportScope::person;
    request.weekly = false;
    ExportRun run(program, request);
    const auto results = finish(run);
    QCOMPARE(results.size(), std::size_t{2});
    QCOMPARE(results[0].logLine, u"Grafico di Bruno --> Operazione eseguita correttamente"_s);
    QCOMPARE(results[1].logLine, u"File di riepilogo di Bruno --> Operazione completata"_s);
    QCOMPARE(filesIn(folder), (QStringList{u"UntitledSystem_Bruno_15-03-2004_Riepilogo.html"_s,
                                           u"UntitledSystem_Bruno_15-03-2004_grafico.png"_s}));
    QFile page(run.summaryPath());
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QByteArray text = page.readAll();
    QVERIFY(text.contains("<IMG src=\"UntitledSystem_Bruno_15-03-2004_grafico.png\""));
    QVERIFY(!text.contains("settimana"));
    QCOMPARE(QImage(results[0].path).size(), size);
}

void TestExportRun::wholeSystem() {
    const QTemporaryDir folder;
    Program program = family(QString());
    ExportRun run(program, everything(folder.path()));
    const auto results = finish(run);
    QCOMPARE(run.errorCount(), 0);
    QCOMPARE(run.errorText(), QString());
    QStringList lines;
    for (const ExportResult& result : results) {
        QVERIFY(!result.failed);
        QVERIFY(QFile::exists(result.path));
        lines << result.logLine;
    }
    const QString week = u"Stato settimanale di %1 --> Operazione eseguita correttamente"_s;
    QStringList expected;
    for (const QString& name : {u"Bruno"_s, u"Carla"_s}) {
        expected << u"Grafico di "_s + name + u" --> Operazione eseguita correttamente"_s;
        expected << QStringList(4, week.arg(name));
        expected << u"File di riepilogo di "_s + name + u" --> Operazione completata"_s;
    }
    QCOMPARE(lines, expected);
    const QStringList files = filesIn(folder);
    QCOMPARE(files.size(), 12);
    QVERIFY(files.contains(u"_Bruno_15-03-2004_StatoSettimana3.png"_s));
    // Three beside each other, and the mean below them.
    QCOMPARE(QImage(results[0].path).size(), size);
    QCOMPARE(QImage(results[1].path).size(), QSize(54, 10));
    for (std::size_t row = 2; row < 5; ++row) {
        QCOMPARE(QImage(results[row].path).size(), QSize(14, 10));
    }
    QVERIFY(files.contains(u"_Carla_15-03-2004_grafico.png"_s));
}

void TestExportRun::membersBecomeCurrent() {
    const QTemporaryDir folder;
    Program program = family(u"/x/Casa.brs"_s);
    program.biorhythm.daysAtGraphStart = -1;
    ExportRun run(program, everything(folder.path()));
    QCOMPARE(program.biorhythm.name, u"Anna"_s); // before the first product
    (void)run.next();
    QCOMPARE(program.biorhythm.name, u"Bruno"_s);
    QCOMPARE(program.biorhythm.birthDate, 10'000);
    QCOMPARE(program.biorhythm.daysAtGraphStart,
             dayNumber(program.biorhythm.calculationDate) - 20 - 10'000);
    (void)finish(run);
    QCOMPARE(program.biorhythm.name, u"Carla"_s);
    QCOMPARE(program.biorhythm.birthDate, 20'000);

    // The picture is the member's own: a person alone with those dates has the same one.
    Program alone = family(QString());
    alone.state.systemOpen = false;
    alone.biorhythm.name = u"Carla"_s;
    alone.biorhythm.birthDate = 20'000;
    ExportRequest request = everything(folder.path());
    request.scope = ExportScope::person;
    ExportRun lone(alone, request);
    QFile loneGraph(lone.next().path);
    QFile graph(folder.filePath(u"Casa_Carla_15-03-2004_grafico.png"_s));
    QFile other(folder.filePath(u"Casa_Bruno_15-03-2004_grafico.png"_s));
    QVERIFY(loneGraph.open(QIODevice::ReadOnly) && graph.open(QIODevice::ReadOnly) &&
            other.open(QIODevice::ReadOnly));
    const QByteArray bytes = graph.readAll();
    QCOMPARE(loneGraph.readAll(), bytes);
    QVERIFY(other.readAll() != bytes);
}

void TestExportRun::bothVariantsSideBySide() {
    const QTemporaryDir folder;
    Program program = family(QString());
    program.state.systemOpen = false;
    program.state.filePath = u"/x/mio.bio"_s;
    ExportRequest request = everything(folder.path());
    request.scope = ExportScope::person;
    for (int again = 0; again < 2; ++again) { // the second time over the first
        for (const PageVariant variant : {PageVariant::screen, PageVariant::print}) {
            request.variant = variant;
            ExportRun run(program, request);
            (void)finish(run);
            QCOMPARE(run.errorCount(), 0);
        }
    }
    const QStringList files = filesIn(folder);
    QCOMPARE(files.size(), 12);
    QCOMPARE(files.filter(u"mio_15-03-2004_stampa_"_s).size(), 6);
}

void TestExportRun::onlyThePage() {
    const QTemporaryDir folder;
    Program program = family(u"/x/Casa.brs"_s);
    ExportRequest request = everything(folder.path());
    request.graph = false;
    request.weekly = false;
    ExportRun run(program, request);
    QCOMPARE(run.steps(), 2);
    (void)finish(run);
    QCOMPARE(filesIn(folder), (QStringList{u"Casa_Bruno_15-03-2004_Riepilogo.html"_s,
                                           u"Casa_Carla_15-03-2004_Riepilogo.html"_s}));
}

void TestExportRun::failuresAreLoggedAndCounted() {
    const QTemporaryDir folder;
    Program program = family(QString());
    ExportRun run(program, everything(folder.filePath(u"missing"_s)));
    const auto results = finish(run);
    QCOMPARE(results.size(), std::size_t{12}); // each one was attempted
    QCOMPARE(run.done(), run.steps());
    QCOMPARE(run.errorCount(), 12);
    QCOMPARE(run.errorText(), u"12 errori rilevati!"_s);
    QCOMPARE(run.summaryPath(), u"NULL"_s);
    QCOMPARE(results[0].logLine, u"Grafico di Bruno --> Errore: creazione del file impossibile"_s);
    QCOMPARE(results[4].logLine,
             u"Stato settimanale di Bruno --> Errore: creazione del file impossibile"_s);
    QCOMPARE(results[5].logLine,
             u"File di riepilogo di Bruno --> Errore: creazione del file impossibile"_s);

    // One picture in trouble: all else is written, and the page refers to it all the same.
    QVERIFY(QDir().mkpath(folder.filePath(u"_Bruno_15-03-2004_StatoSettimana2.png"_s)));
    ExportRun second(program, everything(folder.path()));
    const auto again = finish(second);
    QCOMPARE(second.errorCount(), 1);
    QVERIFY(again[3].failed);
    QCOMPARE(filesIn(folder).size(), 11);
    QFile page(folder.filePath(u"_Bruno_15-03-2004_Riepilogo.html"_s));
    QVERIFY(page.open(QIODevice::ReadOnly));
    QVERIFY(page.readAll().contains("_Bruno_15-03-2004_StatoSettimana2.png"));
    QCOMPARE(second.summaryPath(), u"NULL"_s);

    // A link at a page's name leads to no other file.
    const QString page2 = folder.filePath(u"_Carla_15-03-2004_Riepilogo.html"_s);
    QVERIFY(QFile::remove(page2) && QFile::link(u"elsewhere"_s, page2));
    ExportRun linked(program, everything(folder.path()));
    QVERIFY(finish(linked)[11].failed);
    QVERIFY(!QFile::exists(folder.filePath(u"elsewhere"_s)));

    // A picture without a size is another failure.
    ExportRequest request = everything(folder.path());
    request.pictureSize = {};
    ExportRun third(program, request);
    QCOMPARE(third.next().result, u"Errore: inizializzazione dell'immagine"_s);
}

void TestExportRun::summaryPathOfARun() {
    const QTemporaryDir folder;
    Program program = family(u"/x/Casa.brs"_s);
    ExportRequest request = everything(folder.path());
    request.variant = PageVariant::print;
    ExportRun run(program, request);
    (void)finish(run);
    QCOMPARE(run.summaryPath(), folder.filePath(u"Casa_Carla_15-03-2004_stampa_Riepilogo.html"_s));
    QVERIFY(QFile::exists(run.summaryPath()));
}

void TestExportRun::nobodyToExport() {
    const QTemporaryDir folder;
    Program program = family(QString());
    program.state.systemCount = 0;
    ExportRun run(program, everything(folder.path()));
    QCOMPARE(run.steps(), 0);
    QVERIFY(run.isOver());
    QCOMPARE(run.caption(), QString());
    QCOMPARE(run.summaryPath(), u"NULL"_s);
}

/// Each page shows its own person with its own pictures, whatever the names.
void TestExportRun::noMemberTakesTheFilesOfAnother() {
    const QTemporaryDir folder;
    Program program = family(u"/x/Casa.brs"_s);
    program.state.systemMembers = {{.name = u"A/B"_s, .birthDate = 10'000},
                                   {.name = u"A:B"_s, .birthDate = 20'000},
                                   {.name = u"A:B"_s, .birthDate = 20'001},
                                   {.name = u"a_B"_s, .birthDate = 20'002},
                                   {.name = u"A_B"_s, .birthDate = 20'003}};
    program.state.systemCount = 5;
    ExportRun run(program, everything(folder.path()));
    const auto results = finish(run);
    QCOMPARE(run.errorCount(), 0);
    QSet<QString> paths;
    for (const ExportResult& result : results) {
        paths << result.path.toCaseFolded();
        if (result.path.endsWith(u".html"_s)) {
            QFile page(result.path);
            QVERIFY(page.open(QIODevice::ReadOnly));
            const QString prefix = QFileInfo(page).fileName().chopped(u"Riepilogo.html"_s.size());
            const QByteArray picture = "<IMG src=\"" + prefix.toUtf8() + "grafico.png\"";
            QVERIFY2(page.readAll().contains(picture), picture.constData());
        }
    }
    QCOMPARE(paths.size(), qsizetype{5 * 6});
    QCOMPARE(filesIn(folder).size(), 5 * 6);

    // One member alone has the very files of the run.
    ExportRequest request = everything(folder.path());
    request.scope = ExportScope::person;
    for (const SystemMember& member : program.state.members()) {
        program.biorhythm.name = member.name;
        program.biorhythm.birthDate = member.birthDate;
        ExportRun alone(program, request);
        (void)finish(alone);
        QVERIFY(paths.contains(alone.summaryPath().toCaseFolded()));
    }
    QCOMPARE(filesIn(folder).size(), 5 * 6);
}

void TestExportRun::membersOfTheMomentCount() {
    const QTemporaryDir folder;
    Program program = family(QString());
    program.state.systemCount = 100; // more than there are
    ExportRun run(program, everything(folder.path()));
    QCOMPARE(run.steps(), 12);
    program.state.systemMembers.clear();
    program.state.systemCount = 0;
    QCOMPARE(finish(run).size(), std::size_t{12});
    QCOMPARE(run.errorCount(), 0);
}

} // namespace quor::test
