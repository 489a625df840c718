#include "support/Hermetic.h"

#include <cstdio>
#include <cstdlib>

namespace quor::test {

namespace {

/// Ends the test run at any warning, with its text.
void failOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
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

Surroundings::Surroundings()
{
    for (const char* variable :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME",
          "XDG_RUNTIME_DIR"}) {
        qputenv(variable, m_home.path().toLocal8Bit());
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "Europe/Rome");
    qunsetenv("QT_STYLE_OVERRIDE");
    qunsetenv("QT_SCALE_FACTOR");
    qInstallMessageHandler(failOnWarning);
    QLocale::setDefault(QLocale(qEnvironmentVariable("QUOR_TEST_LOCALE", QStringLiteral("it_IT"))));
}

bool datesAreItalian()
{
    return QLocale().language() == QLocale::Italian;
}

} // namespace quor::test
