// From the press on "Anteprima di stampa" to the first page on the screen, against the engine's
// program alone on the same page.
//
//     bench_preview RENDERER [ROUNDS]
//
// Clock times, as most of the work is done by other processes. The three are taken in turn.

#include "BareFrame.h"
#include "Measure.h"
#include "core/Biorhythm.h"
#include "export/ExportNames.h"
#include "export/FStampaBio.h"
#include "export/Paper.h"
#include "export/PreviewWindow.h"
#include "export/WebBrowser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QImage>
#include <QPdfView>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

using quor::bench::median;

namespace {

constexpr int defaultRounds = 20;
constexpr double goal = 1.5;
constexpr int patience = 60'000; // milliseconds
/// Of the page; the empty sheet that the view shows until the page is drawn has none of it.
constexpr QRgb pageColour = qRgb(0xDD, 0xDD, 0xFF);

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "bench_preview: %s\n", what);
    std::exit(EXIT_FAILURE);
}

quor::Program person(const QString& folder) {
    quor::Program program;
    quor::resetToStartUp(program);
    program.biorhythm.name = u"Maria Rossi"_s;
    program.biorhythm.birthDate = quor::toDateValue(QDate(1981, 12, 25));
    program.biorhythm.calculationDate = quor::toDateValue(QDate(2004, 3, 15));
    program.biorhythm.daysAtGraphStart = quor::dayCountAtGraphStart(program.biorhythm);
    program.state.exportFolder = folder;
    return program;
}

/// Notes that a widget is being painted.
class PaintWatch : public QObject {
  public:
    bool painted = false;

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

bool showsPage(QWidget& viewport) {
    QImage image(viewport.size(), QImage::Format_RGB32);
    viewport.render(&image);
    // A line in the middle crosses the sheet, whose page is as wide as the margins let it.
    const std::span<const QRgb> line(
        reinterpret_cast<const QRgb*>(image.constScanLine(image.height() / 2)),
        static_cast<std::size_t>(image.width()));
    return std::ranges::find(line, pageColour) != line.end();
}

double millisecondsToPreview(quor::Program& program, const QString& renderer) {
    quor::bench::BareFrame frame;
    auto* window = new quor::FStampaBio(program, frame, quor::PrintMode::preview, nullptr);
    window->findChild<quor::WebBrowser*>()->setRenderer(renderer);
    window->show();
    QCoreApplication::processEvents();

    PaintWatch watch;
    QWidget* viewport = nullptr;
    bool seen = false;
    QElapsedTimer clock;
    clock.start();
    window->findChild<QPushButton*>(u"Command1"_s)->click();
    while (!seen && clock.elapsed() < patience) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (viewport == nullptr) {
            if (const auto* preview = window->findChild<quor::PreviewWindow*>()) {
                viewport = preview->findChild<QPdfView*>()->viewport();
                viewport->installEventFilter(&watch);
            }
        } else if (watch.painted) {
            seen = showsPage(*viewport);
            watch.painted = false;
        }
    }
    const auto time = static_cast<double>(clock.nsecsElapsed()) * 1e-6;
    if (!seen) {
        fail("no page comes");
    }
    delete window;
    return time;
}

double millisecondsAlone(const QString& renderer, const QString& page, const QString& pdf) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    QElapsedTimer clock;
    clock.start();
    process.start(renderer, {u"--"_s, page, pdf});
    if (!process.waitForFinished(patience) || process.exitCode() != 0) {
        fail("the engine's program does not make the page");
    }
    return static_cast<double>(clock.nsecsElapsed()) * 1e-6;
}

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    quor::usePaper(quor::quorPaper()); // built in; loading it is no part of this measurement
    const QStringList words = QApplication::arguments();
    if (words.size() < 2) {
        fail("say which program makes the pages");
    }
    const QString& renderer = words.at(1);
    const int rounds = words.size() > 2 ? std::max(1, words.at(2).toInt()) : defaultRounds;

    std::vector<double> alone;
    struct Case {
        const char* name;
        std::vector<double> times{};
        std::vector<double> ratios{};
    };
    std::array<Case, 2> cases{Case{"first preview, its pictures to be exported"},
                              Case{"first preview of what is exported"}};
    for (int round = 0; round < rounds; ++round) {
        const QTemporaryDir folder;
        quor::Program program = person(folder.path());
        const double fromNothing = millisecondsToPreview(program, renderer);
        const double exported = millisecondsToPreview(program, renderer);
        const QString page = quor::summaryFile(
            quor::pathPrefix(folder.path(), quor::exportPrefix(program, quor::PageVariant::print)));
        alone.push_back(millisecondsAlone(renderer, page, folder.filePath(u"pagine.pdf"_s)));
        for (auto* measured : {&cases[0], &cases[1]}) {
            const double time = measured == cases.data() ? fromNothing : exported;
            measured->times.push_back(time);
            measured->ratios.push_back(time / alone.back());
        }
    }
    std::printf("quor-render alone %.0f ms\n", median(alone));
    for (const Case& measured : cases) {
        const auto [least, most] = std::ranges::minmax(measured.ratios);
        std::printf("%s: %.0f ms, ratio %.3f (%.3f to %.3f), goal %.1f\n", measured.name,
                    median(measured.times), median(measured.ratios), least, most, goal);
    }
    return 0;
}
