#include "robustness/VirtualClock.h"

#include <atomic>
#include <ctime>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::int64_t second = 1'000'000'000;

std::int64_t now(clockid_t clock) {
    timespec time{};
    syscall(SYS_clock_gettime, clock, &time);
    return time.tv_sec * second + time.tv_nsec;
}

/// Also asked before anything of this file was constructed.
std::atomic<std::int64_t>& virtualTime() {
    static std::atomic<std::int64_t> time = now(CLOCK_MONOTONIC);
    return time;
}

} // namespace

/// Stands before the C library's for every library of the process.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    if (clock != CLOCK_MONOTONIC) {
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    }
    const std::int64_t value = virtualTime();
    time->tv_sec = value / second;
    time->tv_nsec = value % second;
    return 0;
}

namespace quor::test {

void advanceClock(std::chrono::milliseconds time) {
    virtualTime() += std::chrono::nanoseconds(time).count();
}

std::chrono::nanoseconds realTime() {
    return std::chrono::nanoseconds(now(CLOCK_MONOTONIC));
}

} // namespace quor::test
