// The same work over and over in one run of the whole program: open, view everything, export,
// close. What the program holds must stay as it is after the first rounds: memory within two per
// cent, the same file descriptors, no process. The one cache that fills for longer is emptied
// before each look, so what grows is no cache. Memory comes and goes with the rounds; what it is at
// first is the most of the later half of the first rounds. Prints its figure last.

#include "export/FEsp.h"
#include "export/FEspBio.h"
#include "export/FStampaBio.h"
#include "export/PreviewWindow.h"
#include "guidance/FFastStart.h"
#include "guidance/HelpKey.h"
#include "guidance/HelpService.h"
#include "guidance/HelpWindow.h"
#include "shell/ApplicationSetup.h"
#include "shell/EndRequests.h"
#include "shell/MDIForm1.h"
#include "system/FProj.h"
#include "toolkit/ShowHelp.h"

#include "core/Clock.h"
#include "robustness/Playground.h"
#include "support/Hermetic.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <vector>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Every how many rounds a page is rendered and previewed, which takes a process.
constexpr int previewInterval = 10;
/// And every how many it is looked at what the program holds.
constexpr int sampleInterval = 10;

struct Holdings {
    std::int64_t resident = 0;  ///< bytes
    std::int64_t allocated = 0; ///< bytes in use on the heap
    qsizetype descriptors = 0;
    bool children = false;
};

Holdings holdings() {
    // Qt's pictures of controls: bounded, and with Qt 6.8 still filling after hundreds of rounds. A
    // picture that has leaked is not in there.
    QPixmapCache::clear();
    malloc_trim(0);
    Holdings now;
    QFile statm(u"/proc/self/statm"_s);
    if (statm.open(QIODevice::ReadOnly)) {
        now.resident = statm.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
    }
    statm.close();
    const struct mallinfo2 heap = mallinfo2();
    now.allocated = static_cast<std::int64_t>(heap.uordblks + heap.hblkhd);
    now.descriptors = QDir(u"/proc/self/fd"_s)
                          .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                          .size();
    siginfo_t info{};
    now.children = waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
    return now;
}

[[noreturn]] void fail(const QString& reason) {
    std::fprintf(stderr, "soak: %s\n", qPrintable(reason));
    std::_Exit(1);
}

/// A warning of the toolkit is a fault, except for what the offscreen platform cannot do.
void onMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    const bool aboutPlatform = text.startsWith(u"This plugin does not support "_s);
    if (type != QtDebugMsg && type != QtInfoMsg && !aboutPlatform) {
        fail(text);
    }
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void waitFor(const QString& what, const std::function<bool()>& isThere) {
    constexpr int limit = 30'000;
    QElapsedTimer timer;
    timer.start();
    while (!isThere()) {
        if (timer.hasExpired(limit)) {
            fail(u"waited in vain for "_s + what);
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    settle();
}

QAbstractButton* button(QWidget* window, const QString& name) {
    auto* found = window->findChild<QAbstractButton*>(name);
    if (found == nullptr) {
        fail(u"no button "_s + name);
    }
    return found;
}

template<typename Window> Window* opened(const QWidget* frame) {
    settle();
    auto* window = frame->findChild<Window*>();
    if (window == nullptr || !window->isVisible()) {
        fail(u"a window did not open"_s);
    }
    return window;
}

/// One run of the program, worked with for as long as it lives.
class Worker {
  public:
    Worker(quor::MDIForm1& frame, const quor::test::Playground& files)
        : m_frame(frame)
        , m_files(files) {
        // Whoever is asked says yes.
        QObject::connect(&m_answers, &QTimer::timeout, &m_frame, [] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                box->defaultButton() != nullptr ? box->defaultButton()->click() : box->accept();
            }
        });
        m_answers.start(1);
    }

    void round(int number) {
        using C = quor::Command;
        m_frame.loadBiorhythmFile(m_files.path(u"Giulia Ferraro.bio"_s));
        for (const C view : {C::mnuGrafico, C::mnuStatoSettimanale, C::mnuStatoOdierno,
                             C::mnuPrevisioni, C::mnuWinArrHor, C::mnuWinArrCas}) {
            m_frame.run(view);
            settle();
        }
        expectChildren(4);
        for (const C dialog : {C::graphOptions, C::weeklyOptions, C::mnuOpzioni, C::mnuAbout,
                               C::mnuProcedureGuidate}) {
            m_frame.run(dialog);
            settle();
            closeOthers();
        }
        opened<quor::FFastStart>(&m_frame)->closeWindow();
        m_frame.run(C::mnuHlpCompleto);
        settle();
        closeOthers();
        exportPerson();
        if (number % previewInterval == 0) {
            preview();
        }
        m_frame.run(C::mnuChiudiBioritmo);
        settle();
        expectChildren(0);

        m_frame.loadSystemFile(m_files.path(u"La famiglia Rossi.brs"_s));
        auto* system = opened<quor::FProj>(&m_frame);
        for (const QString& view : {u"Command5"_s, u"Command6"_s, u"Command4"_s, u"Command8"_s}) {
            button(system, view)->click();
            settle();
        }
        expectChildren(5);
        m_frame.run(C::mnuChiudiSistema);
        settle();
        // The views of the mean stay open without their system.
        for (QMdiSubWindow* child : m_frame.findChild<QMdiArea*>()->subWindowList()) {
            child->close();
        }
        settle();
        expectChildren(0);
        closeOthers();
    }

  private:
    void expectChildren(qsizetype count) const {
        const auto children = m_frame.findChild<QMdiArea*>()->subWindowList();
        if (children.size() != count) {
            for (const QMdiSubWindow* child : children) {
                std::fprintf(stderr, "soak: \"%s\"\n", qPrintable(child->windowTitle()));
            }
            fail(u"%1 windows inside the frame, not %2"_s.arg(children.size()).arg(count));
        }
    }

    void closeOthers() const {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            const QPointer<QWidget> other = window;
            if (other != nullptr && other != &m_frame && other->isVisible()) {
                other->close();
            }
        }
        settle();
    }

    void exportPerson() const {
        m_frame.run(quor::Command::mnuEsporta);
        auto* window = opened<quor::FEspBio>(&m_frame);
        for (const QString& product : {u"Check1"_s, u"Check2"_s, u"Check3"_s}) {
            button(window, product)->setChecked(true);
        }
        window->findChild<QComboBox*>()->setCurrentIndex(0);
        button(window, u"Command1"_s)->click();
        waitFor(u"the export"_s, [window] { return button(window, u"Command1"_s)->isEnabled(); });
        closeOthers();
        if (!m_frame.isEnabled()) {
            fail(u"the frame is still disabled after the export"_s);
        }
    }

    void preview() const {
        m_frame.run(quor::Command::mnuAnteprimaDiStampa);
        auto* window = opened<quor::FStampaBio>(&m_frame);
        button(window, u"Command1"_s)->click();
        waitFor(u"the preview"_s, [window] {
            const auto* shown = window->findChild<quor::PreviewWindow*>();
            return shown != nullptr && shown->isVisible();
        });
        closeOthers();
    }

    quor::MDIForm1& m_frame;
    const quor::test::Playground& m_files;
    QTimer m_answers;
};

double percent(std::int64_t value, std::int64_t base) {
    return 100.0 * static_cast<double>(value - base) / static_cast<double>(base);
}

std::int64_t most(const std::vector<Holdings>& samples, std::int64_t Holdings::*what) {
    return (*std::ranges::max_element(samples, {}, what)).*what;
}

/// @param before what was held in the later rounds of the warm-up
/// @return the exit status
int report(const std::vector<Holdings>& before, const std::vector<Holdings>& samples, int rounds,
           double seconds) {
    constexpr double greatestGrowth = 2;
    constexpr double megabyte = 1024 * 1024;
    const Holdings first{.resident = most(before, &Holdings::resident),
                         .allocated = most(before, &Holdings::allocated),
                         .descriptors = before.back().descriptors};
    const Holdings& last = samples.back();
    const double residentGrowth = percent(most(samples, &Holdings::resident), first.resident);
    const double allocatedGrowth = percent(most(samples, &Holdings::allocated), first.allocated);
    const bool isFlat = residentGrowth <= greatestGrowth && allocatedGrowth <= greatestGrowth &&
                        last.descriptors <= first.descriptors && !last.children;
    std::printf("soak: %d rounds in %.0f s, resident %.1f MiB at first, %+.2f %% at most, "
                "allocated %.1f MiB, %+.2f %%, descriptors %d then %d, processes left: %s: %s\n",
                rounds, seconds, static_cast<double>(first.resident) / megabyte, residentGrowth,
                static_cast<double>(first.allocated) / megabyte, allocatedGrowth,
                static_cast<int>(first.descriptors), static_cast<int>(last.descriptors),
                last.children ? "some" : "none", isFlat ? "flat" : "NOT FLAT");
    return isFlat ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const quor::test::Surroundings surroundings;
    qputenv("CUPS_SERVER", "/nonexistent");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption roundsOption(u"rounds"_s, u"After the first."_s, u"number"_s,
                                          u"200"_s);
    const QCommandLineOption firstOption(u"warm-up"_s, u"Rounds before anything is measured."_s,
                                         u"number"_s, u"100"_s);
    parser.addOptions({roundsOption, firstOption});
    parser.addHelpOption();
    parser.process(application);
    const int rounds = std::max(parser.value(roundsOption).toInt(), 1);
    const int warmUp = std::max(parser.value(firstOption).toInt(), 1);

    quor::setUpApplication(application);
    const quor::FixedClock clock(QDate(2026, 11, 21));
    const quor::test::Playground files;
    const quor::EndRequests endRequests;
    quor::HelpService help;
    quor::setHelpViewer(
        [&help](QWidget* window, const QString& path) { help.openHelp(window, path); });
    quor::HelpKey helpKey;
    application.installEventFilter(&helpKey);
    quor::Program program;
    qInstallMessageHandler(onMessage);
    quor::MDIForm1 frame(program, files.programFolder());
    frame.show();
    settle();

    std::vector<Holdings> before;
    std::vector<Holdings> samples;
    QElapsedTimer timer;
    Worker worker(frame, files);
    const bool aloud = qEnvironmentVariableIsSet("SOAK_ALOUD");
    for (int i = 0; i < warmUp + rounds; ++i) {
        worker.round(i);
        const int done = i + 1;
        if (done == warmUp) {
            timer.start();
        }
        if ((done - warmUp) % sampleInterval != 0 && done != warmUp + rounds) {
            continue;
        }
        const Holdings now = holdings();
        if (aloud) {
            std::fprintf(
                stderr, "%5d  %9lld %9lld %d\n", done, static_cast<long long>(now.resident / 1024),
                static_cast<long long>(now.allocated / 1024), static_cast<int>(now.descriptors));
        }
        if (done > warmUp) {
            samples.push_back(now);
        } else if (2 * done > warmUp) {
            before.push_back(now);
        }
    }
    return report(before, samples, rounds, static_cast<double>(timer.elapsed()) / 1000);
}
