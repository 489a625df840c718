// The whole program in the hands of a monkey: see Monkey.h. Prints its figure last. A seed and a
// number of actions are the same walk whenever the same program walks it.

#include "guidance/HelpKey.h"
#include "guidance/HelpService.h"
#include "shell/ApplicationSetup.h"
#include "shell/EndRequests.h"
#include "toolkit/ShowHelp.h"

#include "robustness/Journal.h"
#include "robustness/Monkey.h"
#include "robustness/Place.h"
#include "robustness/Turns.h"
#include "support/Hermetic.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QThreadPool>
#include <QTimer>

#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// In the place of the desktop's programs.
class Nobody : public QObject {
    Q_OBJECT

  public:
    Nobody() {
        for (const QString& scheme : schemes()) {
            QDesktopServices::setUrlHandler(scheme, this, "take");
        }
    }
    ~Nobody() override {
        for (const QString& scheme : schemes()) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }
    Nobody(const Nobody&) = delete;
    Nobody& operator=(const Nobody&) = delete;
    Nobody(Nobody&&) = delete;
    Nobody& operator=(Nobody&&) = delete;

  public slots:
    void take(const QUrl& /*url*/) {}

  private:
    static QStringList schemes() { return {u"http"_s, u"https"_s, u"file"_s, u"mailto"_s}; }
};

/// Lets nothing happen beside what the event loop does, and all that is due between two events.
class Application : public QApplication {
    Q_OBJECT

  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const bool taken = QApplication::notify(receiver, event);
        if (QThread::currentThread() == thread()) {
            while (quor::test::childRuns() && monkey != nullptr && monkey->waitsForProcesses()) {
                quor::test::pause();
            }
            quor::test::giveTurns();
        }
        return taken;
    }

    quor::test::Monkey* monkey = nullptr;
};

/// Large pictures are painted by a thread of the toolkit's, while the main thread waits for it. It
/// is there from the beginning and takes no turns.
void beginPainter() {
    QThreadPool* painters = QThreadPool::globalInstance();
    painters->setExpiryTimeout(-1);
    painters->start([] {});
    painters->waitForDone();
}

/// What main.cpp makes, in the same order, from the start of the program to its end.
void runProgram(quor::test::Monkey& monkey, QApplication& application) {
    const quor::EndRequests endRequests;
    quor::HelpService help;
    quor::setHelpViewer(
        [&help](QWidget* window, const QString& path) { help.openHelp(window, path); });
    quor::HelpKey helpKey;
    application.installEventFilter(&helpKey);

    quor::Program program;
    quor::MDIForm1 frame(program, monkey.playground().programFolder());
    QObject::connect(&frame, &quor::MDIForm1::ended, &application,
                     [] { QCoreApplication::exit(0); });
    QObject::connect(&endRequests, &quor::EndRequests::aboutToEnd, &frame,
                     &quor::MDIForm1::keepUnsavedWork);
    frame.show();
    const quor::StartRequest request = monkey.startRequest();
    QTimer::singleShot(0, &frame, [&frame, &request] { frame.start(request); });
    monkey.take(frame, program);
    QApplication::exec();
    monkey.leave();
    quor::setHelpViewer({});
}

} // namespace

int main(int argc, char** argv) {
    quor::test::beginInPlace(argv);
    const quor::test::Surroundings surroundings;
    Application application(argc, argv);

    QCommandLineParser parser;
    const QCommandLineOption seedOption(u"seed"_s, u"Repeats a run."_s, u"number"_s);
    const QCommandLineOption actionsOption(u"actions"_s, u"Ends after so many."_s, u"number"_s);
    const QCommandLineOption secondsOption(u"seconds"_s, u"Ends after so long."_s, u"number"_s);
    const QCommandLineOption handsOption(u"hands-only"_s, u"Does nothing as assistive tools do."_s);
    parser.addOptions({seedOption, actionsOption, secondsOption, handsOption});
    parser.addHelpOption();
    parser.process(application);
    const std::uint64_t seed =
        parser.isSet(seedOption) ? parser.value(seedOption).toULongLong() : std::random_device()();
    quor::test::Limits limits;
    if (parser.isSet(secondsOption)) {
        limits.time = std::chrono::seconds(parser.value(secondsOption).toLongLong());
        limits.actions = UINT64_MAX;
    }
    if (parser.isSet(actionsOption)) {
        limits.actions = parser.value(actionsOption).toULongLong();
    }

    quor::setUpApplication(application);
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    const Nobody nobody;
    std::printf("monkey: seed %llu\n", static_cast<unsigned long long>(seed));
    std::fflush(stdout);
    const auto means =
        parser.isSet(handsOption) ? quor::test::Means::hands : quor::test::Means::all;
    quor::test::startJournal(seed);
    quor::test::Monkey monkey(seed, limits, means);
    application.monkey = &monkey;
    quor::test::watchForFaults();
    beginPainter();
    quor::test::takeTurns(seed);
    int runs = 0;
    while (!monkey.isDone()) {
        runProgram(monkey, application);
        monkey.prepareNextRun();
        ++runs;
    }
    application.monkey = nullptr;
    quor::test::endTurns();
    quor::test::printRepetition();
    QLocale number(QLocale::English);
    std::printf("monkey: seed %llu, %s actions, %d runs of the program, 0 faults\n",
                static_cast<unsigned long long>(seed),
                qPrintable(number.toString(static_cast<qulonglong>(quor::test::actionCount()))),
                runs);
    return 0;
}

#include "monkey.moc"
