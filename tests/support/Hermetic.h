#pragma once

#include "support/TryMacros.h"

#include <QLocale>
#include <QObject>
#include <QTemporaryDir>

/// What makes a test independent of the machine it runs on.
namespace quor::test {

/// Lives around the application of a test executable: offscreen, a temporary home with its own
/// settings and data folders, Italian dates, and every warning of the toolkit ends the run.
/// QUOR_TEST_LOCALE ("en_US") names another locale for the dates; LC_ALL stays as it is.
/// QUOR_TEST_SCALE ("1.5") is how many pixels of the screen a pixel of a window has, else one.
class Surroundings {
  public:
    Surroundings();

  private:
    QTemporaryDir m_home;
};

/// The base of every test class: a warning of the toolkit during a test function fails it.
class Test : public QObject {
    Q_OBJECT

  private slots:
    void init();
};

/// Runs the test classes one after another. @return the number of failed test functions
template<typename Application, typename... Tests> int runAll(int argc, char** argv) {
    const Surroundings surroundings;
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("quor"));
    const auto run = [argc, argv](QObject&& test) { return QTest::qExec(&test, argc, argv); };
    return (0 + ... + run(Tests{}));
}

/// The locale that the tests' dates are written in is Italian. (Tests of texts in that locale have
/// nothing to say under another one.)
[[nodiscard]] bool datesAreItalian();

} // namespace quor::test

/// The main function of a test executable: the application's class, then the test classes.
#define QUOR_TEST_MAIN(...)                                                                        \
    int main(int argc, char** argv) {                                                              \
        return quor::test::runAll<__VA_ARGS__>(argc, argv);                                        \
    }
