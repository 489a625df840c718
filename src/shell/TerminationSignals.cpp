#include "shell/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quor {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

/// A pipe: a signal handler may only write to it, the event loop reads it.
std::array<int, 2> pipeEnds{-1, -1};

void noteSignal(int /*number*/) {
    const char byte = 0;
    // Nothing can be done in a handler about a pipe that takes no more: a byte is in it already.
    [[maybe_unused]] const auto written = write(pipeEnds[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent) {
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [] { QCoreApplication::exit(0); });
    for (const int number : endingSignals) {
        struct sigaction action {};
        action.sa_handler = noteSignal;
        sigaction(number, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int number : endingSignals) {
        std::signal(number, SIG_DFL);
    }
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

} // namespace quor
