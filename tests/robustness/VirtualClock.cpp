#include "robustness/VirtualClock.h"

#include <atomic>
#include <cerrno>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr std::int64_t second = 1'000'000'000;
/// An hour after the machine was started, on a morning.
constexpr std::int64_t startOfRun = 3600 * second;
constexpr std::int64_t startOfMachine = (1'795'251'600 - 3600) * second; // 2026-11-21 08:00 UTC

std::atomic<std::int64_t> virtualTime = startOfRun;
/// Of the files written, so that each has a time of its own.
std::atomic<std::int64_t> written = 0;

std::int64_t toNumber(const timespec& time) {
    return time.tv_sec * second + time.tv_nsec;
}

timespec toTime(std::int64_t number) {
    return {.tv_sec = number / second, .tv_nsec = number % second};
}

std::int64_t machineNow(clockid_t clock) {
    timespec time{};
    syscall(SYS_clock_gettime, clock, &time);
    return toNumber(time);
}

} // namespace

// What follows stands before the C library's for every library of the process.

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    switch (clock) {
    case CLOCK_MONOTONIC:
    case CLOCK_MONOTONIC_COARSE:
    case CLOCK_MONOTONIC_RAW:
    case CLOCK_BOOTTIME:
        *time = toTime(virtualTime);
        return 0;
    case CLOCK_REALTIME:
    case CLOCK_REALTIME_COARSE:
        *time = toTime(startOfMachine + virtualTime);
        return 0;
    default:
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    }
}

extern "C" int gettimeofday(timeval* time, void* /*zone*/) noexcept {
    const timespec now = toTime(startOfMachine + virtualTime);
    *time = {.tv_sec = now.tv_sec, .tv_usec = now.tv_nsec / 1000};
    return 0;
}

extern "C" time_t time(time_t* time) noexcept {
    const time_t now = (startOfMachine + virtualTime) / second;
    if (time != nullptr) {
        *time = now;
    }
    return now;
}

extern "C" int close(int descriptor) {
    static const auto next = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "close"));
    const int flags = fcntl(descriptor, F_GETFL);
    struct stat file {};
    if (flags >= 0 && (flags & O_ACCMODE) != O_RDONLY && fstat(descriptor, &file) == 0 &&
        S_ISREG(file.st_mode)) {
        const timespec now = toTime(startOfMachine + virtualTime + ++written);
        const timespec times[] = {now, now};
        futimens(descriptor, times);
    }
    return next(descriptor);
}

namespace quor::test {

void advanceClock(std::chrono::milliseconds time) {
    virtualTime += std::chrono::nanoseconds(time).count();
}

std::chrono::nanoseconds realTime() {
    return std::chrono::nanoseconds(machineNow(CLOCK_MONOTONIC));
}

timespec toRealTime(const timespec& time) {
    return toTime(toNumber(time) - virtualTime + machineNow(CLOCK_MONOTONIC));
}

} // namespace quor::test
