// Building and painting the graph against a bare loop over the same primitives.
//
// Both paint into an identical picture. The bare loop has everything at hand in plain vectors and
// does only what nobody could leave out; Quor starts from a day count. The repetitions of both are
// interleaved at random, and the last lines compare the medians.

#include "Bare.h"
#include "Keeper.h"
#include "toolkit/Drawing.h"
#include "toolkit/DrawingPainter.h"
#include "views/graph/GraphDrawing.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

using namespace quor;

namespace {

struct Case {
    std::int32_t daysAround;
    QSize picture;
};

constexpr std::array cases{
    Case{20, {760, 270}},   Case{365, {760, 270}},   Case{32'000, {760, 270}},
    Case{20, {1920, 1080}}, Case{365, {1920, 1080}}, Case{32'000, {1920, 1080}},
};

Drawing graph(const Case& c) {
    const GraphOptions options = defaultGraphOptions();
    const GraphStyle style{.show = {true, true, true, true, true},
                           .colours = options.colours,
                           .dayIndexPosition = options.dayIndexPosition,
                           .calculationDate = 38'777,
                           .textHeight = QFontMetrics(QGuiApplication::font()).height()};
    return drawGraph(personSeries(8'832 - c.daysAround, c.daysAround),
                     layOutGraph(c.picture, c.daysAround), style);
}

QPixmap sheet(const Case& c) {
    QPixmap pixmap(c.picture);
    pixmap.fill(Qt::white);
    return pixmap;
}

void paintQuor(benchmark::State& state, const Case& c) {
    QPixmap pixmap = sheet(c);
    for ([[maybe_unused]] auto _ : state) {
        QPainter painter(&pixmap);
        paint(painter, graph(c));
    }
}

void paintBare(benchmark::State& state, const Case& c) {
    const bench::Bare bare(graph(c), QGuiApplication::font());
    QPixmap pixmap = sheet(c);
    for ([[maybe_unused]] auto _ : state) {
        QPainter painter(&pixmap);
        bare.paint(painter);
    }
}

/// The two ways give the same picture, to the last bit, or their times mean nothing.
bool paintTheSame(const Case& c) {
    QPixmap quorPixmap = sheet(c);
    QPixmap barePixmap = sheet(c);
    {
        QPainter quorPainter(&quorPixmap);
        paint(quorPainter, graph(c));
        QPainter barePainter(&barePixmap);
        bench::Bare(graph(c), QGuiApplication::font()).paint(barePainter);
    }
    return quorPixmap.toImage() == barePixmap.toImage();
}

std::string nameOf(const Case& c) {
    return std::to_string(c.daysAround) + "days/" + std::to_string(c.picture.width()) + "x" +
           std::to_string(c.picture.height());
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);

    for (const Case& c : cases) {
        if (!paintTheSame(c)) {
            std::fprintf(stderr, "bench_graph: the two pictures of %s differ\n", nameOf(c).c_str());
            return 1;
        }
        benchmark::RegisterBenchmark(("quor/" + nameOf(c)).c_str(), paintQuor, c)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("bare/" + nameOf(c)).c_str(), paintBare, c)
            ->Unit(benchmark::kMillisecond);
    }

    // Ahead of the arguments given, which win.
    std::vector<std::string> defaults{argv[0], "--benchmark_repetitions=9",
                                      "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_min_time=0.05"};
    std::vector<char*> arguments;
    std::transform(defaults.begin(), defaults.end(), std::back_inserter(arguments),
                   [](std::string& text) { return text.data(); });
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 1;
    }
    bench::Keeper keeper(bench::Printed::median);
    benchmark::RunSpecifiedBenchmarks(&keeper);
    for (const Case& c : cases) {
        const double bare = keeper.medianOf("bare/" + nameOf(c));
        if (bare > 0) {
            const double quor = keeper.medianOf("quor/" + nameOf(c));
            std::printf("%-22s quor/bare %.3f (medians %.3f and %.3f ms)\n", nameOf(c).c_str(),
                        quor / bare, quor, bare);
        }
    }
    return 0;
}
