// quor-render: turns a page of this computer into a PDF file with the web engine. See `usageText`.

#include "export/render/Arguments.h"
#include "export/render/PagePrinter.h"
#include "storage/ProcessSetup.h"

#include <QGuiApplication>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor::render;

namespace {

void print(FILE* stream, const QString& text) {
    std::fputs(text.toUtf8().constData(), stream);
}

/// The engine talks a lot on standard error, from several processes; none of it is for whoever
/// waits for the file. What is said there after this is lost; the stream returned is the old one,
/// for our one line.
FILE* takeStandardError() {
    const int kept = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    FILE* stream = kept < 0 ? nullptr : fdopen(kept, "w");
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0) {
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    return stream != nullptr ? stream : stderr;
}

/// How it ended, once that is told.
volatile std::sig_atomic_t toldEnd = -1;
int messagesDescriptor = STDERR_FILENO;

/// The engine ends the program by a trap when it cannot go on: newer ones (that of Qt 6.8) without
/// room for the memory that its processes share, which a file-size limit counts as a file.
void onTrap(int /*signal*/) {
    static constexpr std::string_view words = "quor-render: il motore si è interrotto\n";
    if (toldEnd < 0) {
        const ssize_t written = write(messagesDescriptor, words.data(), words.size());
        static_cast<void>(written); // no one else can be told
    }
    _exit(toldEnd < 0 ? pageFailed : static_cast<int>(toldEnd));
}

/// What the engine reads from its surroundings; nobody's wishes from outside come through.
void prepareSurroundings() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* variable :
         {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_QUICK_BACKEND",
          "QTWEBENGINE_REMOTE_DEBUGGING", "QTWEBENGINE_DISABLE_SANDBOX"}) {
        qunsetenv(variable);
    }
    // The proxy that does not exist is a second wall behind the one that looks at each request.
    QByteArray flags = "--disable-gpu --disable-gpu-compositing --disable-software-rasterizer "
                       "--disable-background-networking --disable-component-update "
                       "--disable-breakpad --disable-logging --disable-dev-shm-usage "
                       "--proxy-server=0.0.0.0:9 --proxy-bypass-list=<-loopback>";
    // The engine refuses to lock up its processes for this one user.
    if (geteuid() == 0) {
        flags += " --no-sandbox";
    }
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", flags);
}

} // namespace

int main(int argc, char* argv[]) {
    quor::occupyStandardStreams();
    quor::failAtFileSizeLimit();
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words << QString::fromLocal8Bit(argv[i]);
    }
    const Arguments arguments = parseArguments(words);
    if (arguments.help) {
        print(stdout, usageText());
        return done;
    }
    if (!arguments.fault.isEmpty()) {
        print(stderr, u"quor-render: %1\nProvare: quor-render --help\n"_s.arg(arguments.fault));
        return wrongUse;
    }

    FILE* messages = takeStandardError();
    messagesDescriptor = fileno(messages);
    for (const int signal : {SIGTRAP, SIGILL}) {
        std::signal(signal, onTrap);
    }
    prepareSurroundings();
    // The engine would take the words of our command line for its own.
    int count = 1;
    const QGuiApplication application(count, argv);
    PagePrinter printer(arguments);
    QObject::connect(&printer, &PagePrinter::finished, &application,
                     [messages](ExitCode code, const QString& fault) {
                         if (code != done) {
                             print(messages, u"quor-render: %1\n"_s.arg(fault));
                             std::fflush(messages);
                         }
                         toldEnd = code;
                         QCoreApplication::exit(code);
                     });
    QTimer::singleShot(0, &printer, &PagePrinter::start);
    return QGuiApplication::exec();
}
