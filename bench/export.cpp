// A system's export against a bare loop that paints and saves the same pictures.
//
//     bench_export [PERSONS]
//
// First the whole system is exported, to see whether memory stays flat. Then Quor and the bare loop
// export person after person in turn, and the last lines compare their processor times. The loop
// has every drawing taken apart beforehand, each page as finished bytes, and writes with the
// toolkit's own calls.

#include "Bare.h"
#include "Measure.h"
#include "export/ExportPictures.h"
#include "export/ExportRun.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

#include <cstdio>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace quor;
using quor::bench::Bare;
using quor::bench::processorMilliseconds;

namespace {

constexpr int productsOfAPerson = 6;
constexpr int warmUp = 10; // persons

long peakKibibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

Program systemOf(int persons) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = 45'000;
    program.state.systemOpen = true;
    program.state.systemFilePath = u"/Sistema.brs"_s;
    for (int i = 0; i < persons; ++i) {
        program.state.systemMembers.push_back(
            {.name = u"Persona %1"_s.arg(i), .birthDate = 20'000 + 37.0 * i});
    }
    program.state.systemCount = static_cast<std::int16_t>(persons);
    return program;
}

ExportRequest everything(const QString& folder, QSize size) {
    return {.graph = true,
            .weekly = true,
            .page = true,
            .variant = PageVariant::screen,
            .scope = ExportScope::wholeSystem,
            .folder = folder,
            .pictureSize = size};
}

struct BarePicture {
    Bare drawing;
    QSize size;
    QString path;
};

/// One person's files, all that can be known of them known.
struct BarePerson {
    std::vector<BarePicture> pictures;
    QByteArray page;
    QString pagePath;
};

bool save(const BarePerson& person) {
    for (const auto& [drawing, size, path] : person.pictures) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        drawing.paint(painter);
        painter.end();
        if (!image.save(path, "PNG")) {
            return false;
        }
    }
    QFile file(person.pagePath);
    return file.open(QIODevice::WriteOnly) && file.write(person.page) == person.page.size();
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const int persons = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 200;
    const QSize size = pictureSize(PageVariant::screen, defaultScreen());

    {
        const QTemporaryDir folder;
        Program program = systemOf(persons);
        ExportRun run(program, everything(folder.path(), size));
        long early = 0;
        while (!run.isOver()) {
            (void)run.next();
            if (run.done() == std::min(warmUp, persons) * productsOfAPerson) {
                early = peakKibibytes();
            }
        }
        std::printf("%d persons, %d products, %d failed\n", persons, run.steps(), run.errorCount());
        std::printf("peak memory after %d persons %ld KiB, at the end %ld KiB\n",
                    std::min(warmUp, persons), early, peakKibibytes());
    }

    const QTemporaryDir quorFolder;
    const QTemporaryDir bareFolder;
    Program program = systemOf(persons);
    ExportRun run(program, everything(quorFolder.path(), size));
    double quorTime = 0;
    double bareTime = 0;
    while (!run.isOver()) {
        double begin = processorMilliseconds();
        QStringList paths;
        for (int product = 0; product < productsOfAPerson; ++product) {
            paths << run.next().path;
        }
        quorTime += processorMilliseconds() - begin;

        BarePerson person;
        const auto add = [&](const ExportPicture& picture, qsizetype product) {
            QString path = paths.at(product);
            person.pictures.push_back({.drawing = Bare(picture.drawing, picture.font),
                                       .size = picture.size,
                                       .path = path.replace(quorFolder.path(), bareFolder.path())});
        };
        add(graphPicture(program.biorhythm, size), 0);
        for (const WeekRow row : weekRows) {
            add(weekPicture(program.biorhythm, row, weekPictureSize(row, size)),
                1 + static_cast<qsizetype>(row));
        }
        person.page = readFile(paths.constLast());
        person.pagePath = bareFolder.filePath(u"page%1.html"_s.arg(run.done()));
        begin = processorMilliseconds();
        if (!save(person)) {
            std::fputs("bench_export: the bare loop cannot write\n", stderr);
            return 1;
        }
        bareTime += processorMilliseconds() - begin;

        for (qsizetype product = 0; product < productsOfAPerson - 1; ++product) {
            const auto& bare = person.pictures.at(static_cast<std::size_t>(product)).path;
            if (QImage(bare) != QImage(paths.at(product))) {
                std::fprintf(stderr, "bench_export: %s differs\n", qPrintable(bare));
                return 1;
            }
        }
        for (const QString& path : paths) {
            QFile::remove(path);
        }
        for (const auto& picture : person.pictures) {
            QFile::remove(picture.path);
        }
    }
    std::printf("quor/bare %.3f (%.2f and %.2f ms of processor time a person)\n",
                quorTime / bareTime, quorTime / persons, bareTime / persons);
    return run.errorCount() == 0 ? 0 : 1;
}
