// The whole program in the hands of a monkey: see Monkey.h. Prints its figure last.

#include "guidance/HelpKey.h"
#include "guidance/HelpService.h"
#include "shell/ApplicationSetup.h"
#include "shell/EndRequests.h"
#include "toolkit/ShowHelp.h"

#include "robustness/Journal.h"
#include "robustness/Monkey.h"
#include "support/Hermetic.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
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
    // The plain event loop of the toolkit: what is due comes in the order in which it was asked
    // for.
    qputenv("QT_NO_GLIB", "1");
    const quor::test::Surroundings surroundings;
    qputenv("CUPS_SERVER", "/nonexistent"); // nothing is ever printed on paper
    QApplication application(argc, argv);

    QCommandLineParser parser;
    const QCommandLineOption seedOption(u"seed"_s, u"Repeats a run."_s, u"number"_s);
    const QCommandLineOption actionsOption(u"actions"_s, u"Ends after so many."_s, u"number"_s);
    const QCommandLineOption secondsOption(u"seconds"_s, u"Ends after so long."_s, u"number"_s);
    parser.addOptions({seedOption, actionsOption, secondsOption});
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
    quor::test::startJournal(seed);
    quor::test::Monkey monkey(seed, limits);
    quor::test::watchForFaults();
    int runs = 0;
    while (!monkey.isDone()) {
        runProgram(monkey, application);
        monkey.prepareNextRun();
        ++runs;
    }
    QLocale number(QLocale::English);
    std::printf("monkey: seed %llu, %s actions, %d runs of the program, 0 faults\n",
                static_cast<unsigned long long>(seed),
                qPrintable(number.toString(static_cast<qulonglong>(quor::test::actionCount()))),
                runs);
    return 0;
}

#include "monkey.moc"
