#include "shell/EndRequests.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quor {

namespace {

struct EndingSignal {
    int number;
    bool taken; ///< its handler is ours
};

std::array<EndingSignal, 3> endingSignals{{{SIGTERM, false}, {SIGINT, false}, {SIGHUP, false}}};

/// A pipe: a signal handler may only write to it, the event loop reads it.
std::array<int, 2> pipeEnds{-1, -1};

void noteSignal(int /*number*/) {
    const int error = errno;
    const char byte = 0;
    // Nothing can be done in a handler about a pipe that takes no more: a byte is in it already.
    [[maybe_unused]] const auto written = write(pipeEnds[1], &byte, 1);
    errno = error;
}

/// Handles the signal unless it is ignored, as under nohup. @return whether it is handled now
bool take(int number) {
    struct sigaction old {};
    if (sigaction(number, nullptr, &old) != 0 || old.sa_handler == SIG_IGN) {
        return false;
    }
    struct sigaction action {};
    action.sa_handler = noteSignal;
    return sigaction(number, &action, nullptr) == 0;
}

} // namespace

EndRequests::EndRequests(QObject* parent)
    : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndRequests::end);
    for (EndingSignal& ending : endingSignals) {
        ending.taken = take(ending.number);
    }
}

EndRequests::~EndRequests() {
    for (EndingSignal& ending : endingSignals) {
        if (ending.taken) {
            std::signal(ending.number, SIG_DFL);
            ending.taken = false;
        }
    }
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

void EndRequests::end() {
    emit aboutToEnd();
    QCoreApplication::exit(0);
}

/// The session's end reaches the application as a request to quit, which the toolkit would answer
/// by closing every window, and so by the frame's questions.
bool EndRequests::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Quit) {
        end();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quor
