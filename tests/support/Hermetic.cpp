#include "support/Hermetic.h"

#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
/// Asked by the leak detector: what the toolkit itself never frees. Its documents and their views
/// leave a little behind each.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libQt6Pdf.so\nleak:libQt6PdfWidgets.so\nleak:QScroller::grabGesture\n";
}
#endif

namespace quor::test {

namespace {

/// Ends the test run at any warning, with its text. During a test function, Qt Test has a handler
/// of its own; there the test's `init` sees to it.
void failOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
    // Talk of the C library's character set at start is about the environment, which one run of
    // these tests chooses to be "C"; it says nothing about the program.
    const bool aboutEnvironment = text.startsWith(QLatin1StringView("Detected "));
    if (type != QtDebugMsg && type != QtInfoMsg && !aboutEnvironment) {
        std::fputs("fatal: a warning during a test\n", stderr);
        std::abort();
    }
}

} // namespace

Surroundings::Surroundings() {
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                                 "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, m_home.path().toLocal8Bit());
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "Europe/Rome");
    qunsetenv("QT_STYLE_OVERRIDE");
    qunsetenv("QT_SCALE_FACTOR");
    if (qEnvironmentVariableIsSet("QUOR_TEST_SCALE")) {
        qputenv("QT_SCALE_FACTOR", qgetenv("QUOR_TEST_SCALE"));
    }
    qInstallMessageHandler(failOnWarning);
    QLocale::setDefault(QLocale(qEnvironmentVariable("QUOR_TEST_LOCALE", QStringLiteral("it_IT"))));
}

void Test::init() {
    // What the offscreen platform says it cannot do is no fault of a window.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
}

bool datesAreItalian() {
    return QLocale().language() == QLocale::Italian;
}

} // namespace quor::test
