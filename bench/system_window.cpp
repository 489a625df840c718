// How long the system window takes to appear with the largest system, against a small one.

#include "BareFrame.h"
#include "Measure.h"
#include "core/Biorhythm.h"
#include "system/FProj.h"
#include "system/SystemTreeModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

using quor::bench::median;
using quor::bench::processorMilliseconds;

namespace {

constexpr int few = 10;
constexpr int many = 32'767;
constexpr int defaultRounds = 30;
constexpr double goal = 1.5;

quor::Program programWith(int members) {
    quor::Program program;
    quor::resetToStartUp(program);
    for (int i = 0; i < members; ++i) {
        program.state.systemMembers.push_back(
            {u"Persona numero %1"_s.arg(i), quor::toDateValue(QDate(1950, 1, 1)) + i});
    }
    program.state.systemCount = static_cast<std::int16_t>(members);
    return program;
}

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(EXIT_FAILURE);
}

/// From the program's data to a window that is painted and has answered a key.
double millisecondsToAnswer(quor::Program& program, QMdiArea& area, quor::bench::BareFrame& frame) {
    const double start = processorMilliseconds();
    auto* window = new quor::FProj(program, frame);
    window->fillTree();
    QMdiSubWindow* child = area.addSubWindow(window);
    child->resize(child->sizeHint());
    window->show();
    child->show();
    QCoreApplication::processEvents();
    auto* tree = window->findChild<QTreeView*>(u"TreeView1"_s);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(tree, &down);
    QCoreApplication::processEvents();
    const double time = processorMilliseconds() - start;
    if (!tree->selectionModel()->isSelected(tree->model()->index(0, 0))) {
        fail("the window did not answer");
    }
    qobject_cast<quor::SystemTreeModel*>(tree->model())->showAll();
    if (tree->model()->rowCount() != program.state.systemCount) {
        fail("members are missing");
    }
    delete child;
    QCoreApplication::processEvents();
    return time;
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : defaultRounds;
    if (rounds < 1) {
        fail("usage: bench_system_window [ROUNDS]");
    }
    quor::Program small = programWith(few);
    quor::Program large = programWith(many);
    quor::bench::BareFrame frame;
    QMdiArea area;
    area.resize(1024, 700);
    area.show();
    millisecondsToAnswer(small, area, frame); // fonts, style and pictures are loaded once
    std::vector<double> smallTimes;
    std::vector<double> largeTimes;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        smallTimes.push_back(millisecondsToAnswer(small, area, frame));
        largeTimes.push_back(millisecondsToAnswer(large, area, frame));
        ratios.push_back(largeTimes.back() / smallTimes.back());
    }
    const auto [least, most] = std::ranges::minmax(ratios);
    std::printf("%6d members: %7.2f ms\n%6d members: %7.2f ms\n", few, median(smallTimes), many,
                median(largeTimes));
    std::printf("ratio: %.2f (%.2f to %.2f in %d rounds), goal %.1f\n", median(ratios), least, most,
                rounds, goal);
    return EXIT_SUCCESS;
}
