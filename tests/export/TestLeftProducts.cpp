#include "export/TestLeftProducts.h"

#include "core/Clock.h"
#include "export/ExportRun.h"
#include "export/LeftProducts.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <functional>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr SummarySections both{.graph = true, .weekly = true};

/// A person with a file, so that the products keep their names whatever the person is called.
struct Exported {
    Exported() {
        resetToStartUp(program);
        program.biorhythm.name = u"Maria"_s;
        program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
        program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
        program.state.filePath = u"/dati/mia.bio"_s;
    }
    void run(const SummarySections& sections = both, QSize pictureSize = {120, 80}) {
        ExportRun products(program, {.graph = sections.graph,
                                     .weekly = sections.weekly,
                                     .page = true,
                                     .variant = PageVariant::print,
                                     .folder = folder.path(),
                                     .pictureSize = pictureSize});
        while (!products.isOver()) {
            QVERIFY(!products.next().failed);
        }
    }
    [[nodiscard]] LeftProducts left(const SummarySections& sections = both) const {
        return leftProducts(program.biorhythm, sections, path(QString()), PageVariant::print);
    }
    [[nodiscard]] QString path(const QString& product) const {
        return folder.filePath(u"mia_15-03-2004_stampa_"_s + product);
    }

    QTemporaryDir folder;
    FixedClock clock{QDate(2026, 11, 21)};
    Program program;
};

using Change = std::function<void(Biorhythm&)>;
using Spoil = std::function<bool(const QString&)>;

} // namespace

void TestLeftProducts::changedData_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("inGraph"); // and the next: whether pages of that section alone change
    QTest::addColumn<bool>("inWeek");
    const auto add = [](const char* name, bool inGraph, bool inWeek, const Change& change) {
        QTest::newRow(name) << change << inGraph << inWeek;
    };
    add("nothing", false, false, [](Biorhythm&) {});
    add("name", true, true, [](Biorhythm& b) { b.name = u"Marta"_s; });
    add("birth", true, true, [](Biorhythm& b) { b.birthDate -= 1; });
    add("span", true, false, [](Biorhythm& b) { b.graphDaysAdjust = 1; });
    add("curve", true, false, [](Biorhythm& b) { b.curveColours[3] ^= 1; });
    add("numbers", true, false, [](Biorhythm& b) { b.dayIndexPosition = 1; });
    add("shown", true, false, [](Biorhythm& b) { b.showMean = !b.showMean; });
    add("week", false, true, [](Biorhythm& b) { b.weeklyColours[2] ^= 1; });
}

void TestLeftProducts::changedData() {
    QFETCH(const Change, change);
    QFETCH(const bool, inGraph);
    QFETCH(const bool, inWeek);
    for (const auto& [sections, isOutdated] : {std::pair{both, inGraph || inWeek},
                                               {SummarySections{.graph = true}, inGraph},
                                               {SummarySections{.weekly = true}, inWeek}}) {
        Exported exported;
        exported.run(sections);
        change(exported.program.biorhythm);
        QCOMPARE(exported.left(sections),
                 isOutdated ? LeftProducts::outdated : LeftProducts::current);
    }
}

void TestLeftProducts::everySection_data() {
    QTest::addColumn<bool>("graph");
    QTest::addColumn<bool>("weekly");
    for (const bool graph : {false, true}) {
        for (const bool weekly : {false, true}) {
            QTest::addRow("graph %d, week %d", graph, weekly) << graph << weekly;
        }
    }
}

/// A page that shows other sections than the ones wanted is not what is wanted.
void TestLeftProducts::everySection() {
    QFETCH(const bool, graph);
    QFETCH(const bool, weekly);
    const SummarySections made{.graph = graph, .weekly = weekly};
    Exported exported;
    QCOMPARE(exported.left(made), LeftProducts::missing);
    exported.run(made);
    for (const SummarySections& wanted :
         {SummarySections{}, {.graph = true}, {.weekly = true}, both}) {
        const bool isThere = (graph || !wanted.graph) && (weekly || !wanted.weekly);
        const bool isSame = graph == wanted.graph && weekly == wanted.weekly;
        QCOMPARE(exported.left(wanted), !isThere ? LeftProducts::missing
                                        : isSame ? LeftProducts::current
                                                 : LeftProducts::outdated);
    }
}

void TestLeftProducts::spoiltFiles_data() {
    QTest::addColumn<QString>("product");
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<LeftProducts>("expected");
    const auto write = [](const QByteArray& bytes) {
        return [bytes](const QString& path) {
            QFile file(path);
            return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        };
    };
    const auto remove = [](const QString& path) { return QFile::remove(path); };
    const auto paintOver = [](const QString& path) {
        QImage image(path);
        image.setPixel(image.width() - 1, image.height() - 1, 0xFF010203);
        return image.save(path);
    };
    const auto putFolder = [](const QString& path) {
        return QFile::remove(path) && QDir().mkpath(path);
    };
    const auto putPipe = [](const QString& path) {
        return QFile::remove(path) && mkfifo(qPrintable(path), 0600) == 0;
    };
    const QString page = u"Riepilogo.html"_s;
    QTest::newRow("no page") << page << Spoil(remove) << LeftProducts::missing;
    QTest::newRow("another page") << page << Spoil(write("<P align=\"right\">"))
                                  << LeftProducts::outdated;
    QTest::newRow("empty page") << page << Spoil(write({})) << LeftProducts::outdated;
    QTest::newRow("huge page") << page << Spoil([](const QString& path) {
        return QFile::resize(path, qint64{1} << 40);
    }) << LeftProducts::outdated;
    QTest::newRow("pipe for a page") << page << Spoil(putPipe) << LeftProducts::outdated;
    for (const QString& picture :
         {u"grafico.png"_s, u"StatoSettimana0.png"_s, u"StatoSettimana3.png"_s}) {
        const auto row = [&](const char* what) -> QTestData& {
            return QTest::addRow("%s, %s", qPrintable(picture), what) << picture;
        };
        row("none") << Spoil(remove) << LeftProducts::missing;
        row("one pixel") << Spoil(paintOver) << LeftProducts::outdated;
        row("damaged") << Spoil(write("\x89PNG")) << LeftProducts::outdated;
        row("folder") << Spoil(putFolder) << LeftProducts::outdated;
        row("pipe") << Spoil(putPipe) << LeftProducts::outdated;
    }
}

void TestLeftProducts::spoiltFiles() {
    QFETCH(const QString, product);
    QFETCH(const Spoil, spoil);
    QFETCH(const LeftProducts, expected);
    Exported exported;
    exported.run();
    QVERIFY(spoil(exported.path(product)));
    QCOMPARE(exported.left(), expected);
}

/// The page bears the day on which it was made; the pictures are as large as some paper asked for.
void TestLeftProducts::otherDaysAndSizes() {
    for (const QSize size : {QSize(48, 16), QSize(300, 50), QSize(635, 449)}) {
        Exported exported;
        exported.run(both, size);
        const FixedClock later(QDate(2030, 1, 1));
        QCOMPARE(exported.left(), LeftProducts::current);
    }
}

} // namespace quor::test
