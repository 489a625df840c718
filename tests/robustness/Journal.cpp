#include "robustness/Journal.h"

#include "robustness/Turns.h"
#include "robustness/VirtualClock.h"

#include <QDir>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <thread>

#include <execinfo.h>
#include <pthread.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace quor::test {

namespace {

constexpr std::size_t kept = 30;
constexpr std::size_t longestLine = 240;

/// Plain bytes, which can be printed from wherever the process has stumbled.
struct Pages {
    std::uint64_t seed = 0;
    std::atomic<std::uint64_t> count = 0;
    std::atomic<std::uint64_t> end = 0; ///< how many were asked for, once they are done
    std::array<std::array<char, longestLine>, kept> lines{};
};

Pages& pages() {
    static Pages all;
    return all;
}

std::atomic<bool> reported = false;

void print(const char* text) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text, std::strlen(text));
}

void printJournal(const char* fault) {
    if (reported.exchange(true)) {
        return;
    }
    const Pages& all = pages();
    const std::uint64_t count = all.count;
    std::array<char, 160> line{};
    print("\n");
    for (std::uint64_t i = count > kept ? count - kept : 0; i < count; ++i) {
        std::snprintf(line.data(), line.size(), "%8llu  ", static_cast<unsigned long long>(i + 1));
        print(line.data());
        print(all.lines.at(i % kept).data());
        print("\n");
    }
    std::snprintf(line.data(), line.size(), "monkey: seed %llu, action %llu, FAULT%s: ",
                  static_cast<unsigned long long>(all.seed), static_cast<unsigned long long>(count),
                  all.end != 0 ? " at the end" : "");
    print(line.data());
    print(fault);
    print("\n");
    printRepetition();
}

void printStack() {
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_print_stack_trace();
#else
    std::array<void*, 64> frames{};
    backtrace_symbols_fd(frames.data(), backtrace(frames.data(), static_cast<int>(frames.size())),
                         STDERR_FILENO);
#endif
}

void onCrash(int signal) {
    printJournal(signal == SIGUSR2 ? "no return to the event loop" : strsignal(signal));
    printStack();
    _exit(1);
}

void onMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg ||
        text.startsWith(QStringLiteral("This plugin does not support ")) ||
        text.startsWith(QStringLiteral("Detected "))) {
        return;
    }
    printJournal(qPrintable(QStringLiteral("message of the toolkit: ") + text));
    printStack();
    _exit(1);
}

std::atomic<std::uint64_t> signsOfLife = 0;

/// Seconds of the processor that the thread has had.
double processorTime(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The main thread's own time counts, so that a machine busy with others is no fault; and a thread
/// that waits for what never comes has a minute.
void watch(pthread_t mainThread) {
    standAside();
    constexpr double greatestWork = 5;
    constexpr std::chrono::seconds longestWait(60);
    constexpr timespec pause{.tv_sec = 0, .tv_nsec = 100'000'000};
    clockid_t clock{};
    pthread_getcpuclockid(mainThread, &clock);
    std::uint64_t seen = 0;
    double work = processorTime(clock);
    auto since = realTime();
    for (;;) {
        nanosleep(&pause, nullptr);
        const double workNow = processorTime(clock);
        if (const std::uint64_t signs = signsOfLife; signs != seen) {
            seen = signs;
            work = workNow;
            since = realTime();
        } else if (workNow - work > greatestWork || realTime() - since > longestWait) {
            pthread_kill(mainThread, SIGUSR2);
            return;
        }
    }
}

} // namespace

void startJournal(std::uint64_t seed) {
    pages().seed = seed;
}

void noteAction(const QString& action) {
    Pages& all = pages();
    static const QByteArray place = QDir::tempPath().toUtf8(); // not the same for two side by side
    const QByteArray text =
        action.toUtf8().replace('\0', ' ').replace('\n', ' ').replace(place, "...");
    std::snprintf(all.lines.at(all.count % kept).data(), longestLine, "%s", text.constData());
    ++all.count;
    if (isAloud()) {
        std::fprintf(stderr, "%llu %s\n", static_cast<unsigned long long>(all.count),
                     text.constData());
    }
}

bool isAloud() {
    static const bool aloud = qEnvironmentVariableIsSet("MONKEY_ALOUD");
    return aloud;
}

void noteLife() {
    ++signsOfLife;
}

std::uint64_t actionCount() {
    return pages().count;
}

void noteEnd(std::uint64_t limit) {
    pages().end = limit;
}

void printRepetition() {
    // What goes wrong at the end goes wrong with these actions only; else the next one is begun, so
    // that all of the last one has its effect.
    const Pages& all = pages();
    const std::uint64_t actions = all.end != 0 ? all.end.load() : all.count + 1;
    std::array<char, 160> line{};
    std::snprintf(line.data(), line.size(), "monkey: to repeat: --seed %llu --actions %llu\n",
                  static_cast<unsigned long long>(all.seed),
                  static_cast<unsigned long long>(actions));
    print(line.data());
}

void reportFault(const QString& fault) {
    printJournal(qPrintable(fault));
    _exit(1);
}

void watchForFaults() {
    qInstallMessageHandler(onMessage);
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback([] { printJournal("report of a sanitizer"); });
#else
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) {
        std::signal(signal, onCrash);
    }
#endif
    std::signal(SIGABRT, onCrash);
    std::signal(SIGUSR2, onCrash);
    std::thread(watch, pthread_self()).detach();
}

} // namespace quor::test

#if defined(__SANITIZE_ADDRESS__)
/// Called by the sanitizer of undefined behaviour, which is a library of its own.
extern "C" void __ubsan_on_report();
extern "C" void __ubsan_on_report() {
    quor::test::printJournal("report of a sanitizer");
}
#endif
