#include "shell/TestEndRequests.h"

#include "shell/EndRequests.h"
#include "shell/FrameFixture.h"

#include <QTimer>

#include <csignal>

namespace quor::test {

namespace {

constexpr int notEnded = 77;

/// Runs the event loop until something ends it, at most two seconds. @return its exit status
int runLoop(const std::function<void()>& request) {
    QTimer::singleShot(0, request);
    QTimer::singleShot(2000, [] { QCoreApplication::exit(notEnded); });
    return QCoreApplication::exec();
}

} // namespace

void TestEndRequests::theSessionEndsWithoutAQuestion() {
    const EndRequests requests;
    FrameFixture fixture; // no box is due
    fixture.enter();
    QVERIFY(fixture.program.state.modified);
    QCOMPARE(runLoop([] {
                 QCoreApplication::postEvent(QCoreApplication::instance(),
                                             new QEvent(QEvent::Quit));
             }),
             0);
    QVERIFY(fixture.program.biorhythm.isPresent());
}

void TestEndRequests::signalsEndWithoutAQuestion_data() {
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestEndRequests::signalsEndWithoutAQuestion() {
    QFETCH(int, number);
    std::signal(number, SIG_DFL);
    const EndRequests requests;
    FrameFixture fixture;
    fixture.enter();
    QCOMPARE(runLoop([number] { std::raise(number); }), 0);
}

void TestEndRequests::ignoredSignalsStayIgnored() {
    const auto old = std::signal(SIGHUP, SIG_IGN);
    {
        const EndRequests requests;
        std::raise(SIGHUP);
        QVERIFY(std::signal(SIGHUP, SIG_IGN) == SIG_IGN);
    }
    QVERIFY(std::signal(SIGHUP, old) == SIG_IGN);
}

} // namespace quor::test
