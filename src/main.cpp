// Starts the program: command line, locale, translations, one record of data, one frame.

#include "core/ExitStatus.h"
#include "guidance/HelpKey.h"
#include "guidance/LateHelp.h"
#include "shell/ApplicationSetup.h"
#include "shell/CommandLine.h"
#include "shell/EndRequests.h"
#include "shell/Folders.h"
#include "shell/MDIForm1.h"
#include "storage/ProcessSetup.h"
#include "toolkit/ShowHelp.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

void print(FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

/// Prints what was asked for. @return the exit status
int answer(const QString& text) {
    print(stdout, text);
    if (std::fflush(stdout) == 0) {
        return quor::exitStatus::success;
    }
    print(stderr, u"quor: lo standard output non si può scrivere: %1\n"_s.arg(qt_error_string()));
    return quor::exitStatus::failure;
}

/// Whoever reads along may have enough before the end: that is an error like any other.
void failAtClosedPipe() {
    std::signal(SIGPIPE, SIG_IGN); // NOLINT(bugprone-signal-handler): none is called
}

/// While the application connects to the display: Qt ends the process where there is none, after
/// many lines; one says it. Another says that Qt lacks a plugin: installing it helps, also where Qt
/// has found another way to the display.
void reportNoDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (text.startsWith(u"Could not find the Qt platform plugin")) {
        const QString advice =
            text.contains(u"wayland") ? u" (installare il pacchetto qt6-wayland)"_s : QString();
        print(stderr, u"quor: a Qt manca un plugin: %1%2\n"_s.arg(text.trimmed(), advice));
        return;
    }
    if (type == QtFatalMsg) {
        print(stderr, u"quor: nessuno schermo disponibile\n"_s);
        std::_Exit(quor::exitStatus::failure);
    }
    if (type == QtCriticalMsg) {
        print(stderr, text + u'\n');
    }
}

/// For a run whose standard error is read by others: what the toolkit misses on a bare machine (a
/// session's folder, say) is not an error of the run.
void reportFaults(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        print(stderr, text + u'\n');
    }
}

/// Exports without a window. @return the exit status
int exportFiles(const quor::BatchRequest& request) {
    failAtClosedPipe();
    quor::BatchRequest batch = request;
    if (batch.outputFolder.isEmpty()) {
        batch.outputFolder = quor::prepareFolders(QGuiApplication::applicationDirPath()).exports;
    }
    QTextStream output(stdout);
    QTextStream errors(stderr);
    return quor::exportBatch(batch, output, errors);
}

/// The same on whatever machine. @return the exit status
int exportWithoutScreen(int& argc, char** argv, const quor::BatchRequest& request) {
    qInstallMessageHandler(reportFaults);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv); // for the fonts
    QGuiApplication::setApplicationName(u"quor"_s);
    quor::setUpLocale();
    return exportFiles(request);
}

/// Writes a report; it takes neither a screen nor the toolkit's application. @return the exit
/// status
int writeReport(const quor::ReportRequest& request) {
    failAtClosedPipe();
    quor::setUpLocale();
    QFile output;
    QTextStream errors(stderr);
    if (!output.open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        print(stderr, u"quor: %1\n"_s.arg(output.errorString()));
        return quor::exitStatus::failure;
    }
    return quor::writeReport(request, output, errors);
}

/// What can be answered without a screen. @return the exit status, or -1 when the frame is wanted
int answerWithoutScreen(const quor::StartRequest& request) {
    switch (request.mode) {
    case quor::StartMode::showHelp:
        return answer(quor::usageText());
    case quor::StartMode::showVersion:
        return answer(u"quor %1\n"_s.arg(QString::fromLatin1(quor::version())));
    case quor::StartMode::wrongUse:
        print(stderr, u"quor: %1\nProvare: quor --help\n"_s.arg(request.text));
        return quor::exitStatus::wrongUse;
    default:
        return -1;
    }
}

} // namespace

int main(int argc, char* argv[]) {
    quor::occupyStandardStreams();
    quor::failAtFileSizeLimit();
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    const quor::StartRequest early = quor::parseArguments(arguments);
    if (const int status = answerWithoutScreen(early); status >= 0) {
        return status;
    }
    if (early.mode == quor::StartMode::exportFile) {
        return exportWithoutScreen(argc, argv, early.batch);
    }
    if (early.mode == quor::StartMode::reportFile) {
        return writeReport(early.report);
    }

    const auto previousHandler = qInstallMessageHandler(reportNoDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(previousHandler);
    quor::setUpApplication(application);

    // Once more: the toolkit has taken its own options ("-platform") away from before ours by now.
    const quor::StartRequest request = quor::parseArguments(QApplication::arguments().sliced(1));
    if (const int status = answerWithoutScreen(request); status >= 0) {
        return status;
    }
    if (request.mode == quor::StartMode::exportFile) {
        return exportFiles(request.batch);
    }
    if (request.mode == quor::StartMode::reportFile) {
        return writeReport(request.report);
    }

    const quor::EndRequests endRequests;
    quor::LateHelp help;
    quor::setHelpViewer(
        [&help](QWidget* window, const QString& path) { help.openHelp(window, path); });
    quor::HelpKey helpKey;
    application.installEventFilter(&helpKey);

    quor::Program program;
    quor::MDIForm1 frame(program, QApplication::applicationDirPath());
    QObject::connect(&frame, &quor::MDIForm1::ended, &application,
                     [] { QCoreApplication::exit(quor::exitStatus::success); });
    QObject::connect(&endRequests, &quor::EndRequests::aboutToEnd, &frame,
                     &quor::MDIForm1::keepUnsavedWork);
    frame.show();
    // From inside the event loop, so that a request to end the program also ends the questions that
    // opening a file may ask.
    QTimer::singleShot(0, &frame, [&frame, &request] { frame.start(request); });
    return QApplication::exec();
}
