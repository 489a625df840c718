#include "robustness/Turns.h"

#include "robustness/VirtualClock.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <thread>

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/futex.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Thread {
    std::atomic<bool> used = false;
    std::atomic<int> status = -1; ///< what the system says of it; -1 before it has begun
    std::atomic<bool> parked = false;
    std::atomic<int> gate = 0;
    bool free = false; ///< goes on as it likes
    std::uint64_t number = 0;
    std::uint64_t stops = 0;
    std::uint64_t due = 0; ///< the turn in which it goes on
};

constexpr std::size_t mostThreads = 64;

std::array<Thread, mostThreads>& threads() {
    static std::array<Thread, mostThreads> all;
    return all;
}

std::atomic<int> living = 0; ///< those that take turns
std::atomic<bool> taking = false;
std::atomic<bool> stirred = false; ///< somebody may have been woken since all were at rest
enum : int { mainGoes, mainWaits, mainHasWaited };
std::atomic<int> mainState = mainGoes;
std::atomic<std::uint64_t> turn = 0;
std::uint64_t chance = 0;
std::uint64_t begun = 0;
pthread_t mainThread{};
int mainStatus = -1;
thread_local Thread* mine = nullptr;

bool isMain() {
    return taking && pthread_equal(pthread_self(), mainThread) != 0;
}

std::uint64_t mixed(std::uint64_t number) {
    number += 0x9e3779b97f4a7c15;
    number = (number ^ (number >> 30U)) * 0xbf58476d1ce4e5b9;
    number = (number ^ (number >> 27U)) * 0x94d049bb133111eb;
    return number ^ (number >> 31U);
}

/// The function that stands behind one of ours.
template<typename Function> Function next(const char* name, const char* version = nullptr) {
    void* found = version != nullptr ? dlvsym(RTLD_NEXT, name, version) : nullptr;
    return reinterpret_cast<Function>(found != nullptr ? found : dlsym(RTLD_NEXT, name));
}

int openStatus() {
    std::array<char, 64> path{};
    std::snprintf(path.data(), path.size(), "/proc/self/task/%d/status", gettid());
    return ::open(path.data(), O_RDONLY | O_CLOEXEC);
}

void open(Thread& thread) {
    if (thread.parked.exchange(false)) {
        stirred = true;
        thread.gate = 1;
        thread.gate.notify_one();
    }
}

/// In a thread: stands still until its turn comes.
void park(std::uint64_t turns) {
    if (mine == nullptr || mine->free || !taking) {
        return;
    }
    mine->due = turn + turns;
    mine->gate = 0;
    mine->parked = true;
    if (!taking) {
        open(*mine);
    }
    mine->gate.wait(0);
}

/// Mostly no time, sometimes up to so many turns.
std::uint64_t someTurns(std::uint64_t longest) {
    if (mine == nullptr) {
        return 0;
    }
    const std::uint64_t die = mixed(chance ^ mixed(mine->number * 100'000 + ++mine->stops));
    return die % 4 == 0 ? die / 4 % longest : 0;
}

enum class State : std::uint8_t { works, rests, gone };

State stateOf(int status, std::uint64_t& switches) {
    std::array<char, 4096> text{};
    const auto length = pread(status, text.data(), text.size() - 1, 0);
    const char* state = length > 0 ? std::strstr(text.data(), "\nState:\t") : nullptr;
    if (state == nullptr) {
        return State::gone;
    }
    if (const char* count = std::strstr(text.data(), "\nvoluntary_ctxt_switches:\t")) {
        switches += std::strtoull(count + std::strlen("\nvoluntary_ctxt_switches:\t"), nullptr, 10);
    }
    switch (state[std::strlen("\nState:\t")]) {
    case 'S':
        return State::rests;
    case 'Z':
    case 'X':
        return State::gone;
    default:
        return State::works;
    }
}

State stateOf(Thread& thread, std::uint64_t& switches) {
    if (thread.parked) {
        return State::rests;
    }
    return thread.status < 0 ? State::works : stateOf(thread.status, switches);
}

void forget(Thread& thread) {
    close(thread.status);
    thread.status = -1;
    living -= thread.free ? 0 : 1;
    thread.used = false;
}

enum class Whom : std::uint8_t { takingTurns, all };

/// Seen twice without anything between, because one may wake another while a third is looked at.
void waitUntilRest(Whom whom = Whom::takingTurns) {
    std::uint64_t before = 0;
    for (int seen = 0; seen < 2;) {
        int looked = 0;
        bool rest = true;
        std::uint64_t switches = 0;
        for (Thread& thread : threads()) {
            if (!thread.used || (thread.free && whom != Whom::all)) {
                continue;
            }
            ++looked;
            const State state = stateOf(thread, switches);
            rest = rest && state != State::works;
            if (state == State::gone) {
                forget(thread);
            }
        }
        if (rest && looked < 2) {
            return;
        }
        seen = !rest ? 0 : switches == before ? seen + 1 : 1;
        before = switches;
        if (!rest) {
            quor::test::pause();
        }
    }
}

/// The one that comes next, of those that are due, or of all.
Thread* nextParked(bool all) {
    Thread* found = nullptr;
    for (Thread& thread : threads()) {
        if (thread.used && thread.parked && (all || thread.due <= turn) &&
            (found == nullptr || thread.due < found->due ||
             (thread.due == found->due && thread.number < found->number))) {
            found = &thread;
        }
    }
    return found;
}

/// While the main thread waits for others, somebody else must let them go on, one after the other,
/// until it goes on itself.
void usher() {
    quor::test::standAside();
    for (;;) {
        mainState.wait(mainGoes);
        while (mainState == mainWaits) {
            waitUntilRest(Whom::all);
            std::uint64_t switches = 0;
            Thread* thread = stateOf(mainStatus, switches) == State::rests && mainState == mainWaits
                                 ? nextParked(true)
                                 : nullptr;
            if (thread != nullptr) {
                open(*thread);
            } else {
                quor::test::pause();
            }
        }
        mainState = mainGoes;
    }
}

class MainWaits {
  public:
    MainWaits() {
        mainState = mainWaits;
        mainState.notify_one();
    }
    ~MainWaits() {
        mainState = mainHasWaited;
        while (mainState != mainGoes) {
            quor::test::pause();
        }
        waitUntilRest();
    }
    MainWaits(const MainWaits&) = delete;
    MainWaits& operator=(const MainWaits&) = delete;
    MainWaits(MainWaits&&) = delete;
    MainWaits& operator=(MainWaits&&) = delete;
};

/// The main thread sleeps for a while, in which every other goes on once.
void letAllGoOnce() {
    waitUntilRest();
    std::array<Thread*, mostThreads> parked{};
    std::size_t count = 0;
    for (Thread& thread : threads()) {
        if (thread.used && thread.parked) {
            parked.at(count++) = &thread;
        }
    }
    std::sort(parked.begin(), parked.begin() + count,
              [](const Thread* a, const Thread* b) { return a->number < b->number; });
    for (std::size_t i = 0; i < count; ++i) {
        open(*parked.at(i));
        waitUntilRest();
    }
}

struct Beginning {
    void* (*routine)(void*);
    void* argument;
    Thread* thread;
};

void* begin(void* beginning) {
    constexpr std::uint64_t longest = 150;
    const std::unique_ptr<Beginning> own(static_cast<Beginning*>(beginning));
    mine = own->thread;
    mine->status = openStatus();
    park(someTurns(longest));
    return own->routine(own->argument);
}

template<typename Waiting> int waited(pthread_mutex_t* mutex, const Waiting& waiting) {
    if (mine != nullptr) {
        constexpr std::uint64_t longest = 50;
        const int result = waiting();
        if (taking) {
            pthread_mutex_unlock(mutex);
            park(someTurns(longest));
            pthread_mutex_lock(mutex);
        }
        return result;
    }
    if (isMain() && living > 0) {
        const MainWaits others;
        return waiting();
    }
    return waiting();
}

/// @return whether the time has passed
bool slept(std::chrono::milliseconds time) {
    if (mine != nullptr && !mine->free && taking) {
        constexpr int millisecondsOfTurn = 3;
        park(1 + static_cast<std::uint64_t>(time.count()) / millisecondsOfTurn);
        return true;
    }
    if (isMain() && living > 0) {
        letAllGoOnce();
        quor::test::advanceClock(time);
        return true;
    }
    return false;
}

using Wake = int (*)(pthread_cond_t*);
using Wait = int (*)(pthread_cond_t*, pthread_mutex_t*);
using TimedWait = int (*)(pthread_cond_t*, pthread_mutex_t*, const timespec*);
using ClockWait = int (*)(pthread_cond_t*, pthread_mutex_t*, clockid_t, const timespec*);

#if defined(__x86_64__)
constexpr const char* versionOfConditions = "GLIBC_2.3.2"; // there is an older one
#else
constexpr const char* versionOfConditions = nullptr;
#endif

} // namespace

// What follows stands before the C library's for every library of the process.

extern "C" int pthread_create(pthread_t* id, const pthread_attr_t* attributes,
                              void* (*routine)(void*), void* argument) noexcept {
    static const auto create =
        next<int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
    for (Thread& thread : threads()) {
        if (!thread.used.exchange(true)) {
            thread.free = !taking;
            thread.number = ++begun;
            thread.stops = 0;
            living += thread.free ? 0 : 1;
            stirred = true;
            auto own = std::make_unique<Beginning>(routine, argument, &thread);
            const int result = create(id, attributes, begin, own.get());
            if (result == 0) {
                [[maybe_unused]] const auto* taken = own.release();
            } else {
                forget(thread);
            }
            return result;
        }
    }
    return EAGAIN;
}

extern "C" int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    static const auto wait = next<Wait>("pthread_cond_wait", versionOfConditions);
    return waited(mutex, [&] { return wait(condition, mutex); });
}

extern "C" int pthread_cond_signal(pthread_cond_t* condition) {
    static const auto wake = next<Wake>("pthread_cond_signal", versionOfConditions);
    stirred = true;
    return wake(condition);
}

extern "C" int pthread_cond_broadcast(pthread_cond_t* condition) {
    static const auto wake = next<Wake>("pthread_cond_broadcast", versionOfConditions);
    stirred = true;
    return wake(condition);
}

// A thread that takes turns never waits in vain: time in which nothing happens is none that anybody
// sees.

extern "C" int pthread_cond_timedwait(pthread_cond_t* condition, pthread_mutex_t* mutex,
                                      const timespec* time) {
    static const auto wait = next<TimedWait>("pthread_cond_timedwait", versionOfConditions);
    if (mine != nullptr && !mine->free) {
        return pthread_cond_wait(condition, mutex);
    }
    const timespec realTime = quor::test::toRealTime(*time); // of the clock that the toolkit takes
    return waited(mutex, [&] { return wait(condition, mutex, &realTime); });
}

extern "C" int pthread_cond_clockwait(pthread_cond_t* condition, pthread_mutex_t* mutex,
                                      clockid_t clock, const timespec* time) {
    static const auto wait = next<ClockWait>("pthread_cond_clockwait");
    if (mine != nullptr && !mine->free) {
        return pthread_cond_wait(condition, mutex);
    }
    const timespec realTime = clock == CLOCK_MONOTONIC ? quor::test::toRealTime(*time) : *time;
    return waited(mutex, [&] { return wait(condition, mutex, clock, &realTime); });
}

extern "C" int nanosleep(const timespec* time, timespec* left) {
    static const auto sleep = next<int (*)(const timespec*, timespec*)>("nanosleep");
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(
        std::chrono::seconds(time->tv_sec) + std::chrono::nanoseconds(time->tv_nsec));
    return slept(milliseconds) ? 0 : sleep(time, left);
}

extern "C" int usleep(useconds_t time) {
    static const auto sleep = next<int (*)(useconds_t)>("usleep");
    const auto milliseconds =
        std::chrono::ceil<std::chrono::milliseconds>(std::chrono::microseconds(time));
    return slept(milliseconds) ? 0 : sleep(time);
}

/// The toolkit's own locks wait by a call of the system that has no function of its own.
extern "C" long syscall(long number, ...) noexcept {
    static const auto call = next<long (*)(long, long, long, long, long, long, long)>("syscall");
    std::array<long, 6> values{};
    va_list list;
    va_start(list, number);
    for (long& value : values) {
        value = va_arg(list, long);
    }
    va_end(list);
    const auto enter = [&] {
        return call(number, values[0], values[1], values[2], values[3], values[4], values[5]);
    };
    const long operation = values[1] & FUTEX_CMD_MASK;
    const bool waits =
        number == SYS_futex && (operation == FUTEX_WAIT || operation == FUTEX_WAIT_BITSET);
    if (number == SYS_futex && !waits) {
        stirred = true;
    }
    if (waits && isMain() && living > 0) {
        const MainWaits others;
        return enter();
    }
    return enter();
}

/// One processor: pictures are painted by one thread, on every machine the same.
extern "C" int sched_getaffinity(pid_t /*process*/, std::size_t size,
                                 cpu_set_t* processors) noexcept {
    std::memset(processors, 0, size);
    CPU_SET(0, processors);
    return 0;
}

/// The event loop with nothing to do waits for the others, or for a time that comes at once.
extern "C" int ppoll(pollfd* files, nfds_t count, const timespec* time, const sigset_t* signals) {
    static const auto poll =
        next<int (*)(pollfd*, nfds_t, const timespec*, const sigset_t*)>("ppoll");
    const bool waits = time == nullptr || time->tv_sec > 0 || time->tv_nsec > 0;
    if (!isMain() || !waits || living == 0) {
        return poll(files, count, time, signals);
    }
    int result = 0;
    {
        const MainWaits others;
        result = poll(files, count, time, signals);
    }
    if (result == 0) {
        quor::test::advanceClock(std::chrono::ceil<std::chrono::milliseconds>(
            std::chrono::seconds(time->tv_sec) + std::chrono::nanoseconds(time->tv_nsec)));
    }
    return result;
}

extern "C" int fdatasync(int descriptor) {
    constexpr std::uint64_t longest = 40;
    park(someTurns(longest));
    static const auto sync = next<int (*)(int)>("fdatasync");
    return sync(descriptor);
}

/// Chance that the system gives, for the names of temporary files.
extern "C" int getentropy(void* buffer, std::size_t size) noexcept {
    thread_local std::uint64_t given = 0;
    auto* bytes = static_cast<unsigned char*>(buffer);
    const std::uint64_t thread = mine != nullptr ? mine->number << 32U : 0;
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<unsigned char>(mixed(thread + ++given));
    }
    return 0;
}

namespace quor::test {

void takeTurns(std::uint64_t seed) {
    chance = mixed(seed);
    mainThread = pthread_self();
    mainStatus = openStatus();
    std::thread(usher).detach();
    taking = true;
}

void standAside() {
    mine->used = false; // nobody waits for it
    mine = nullptr;
}

void giveTurns() {
    if (!isMain()) {
        return;
    }
    while (living > 0 && stirred.exchange(false)) {
        waitUntilRest();
        if (Thread* thread = nextParked(false)) {
            open(*thread);
        }
    }
}

void countTurn() {
    giveTurns();
    ++turn;
    stirred = true; // whose time has come, and whoever was woken in a way that nobody sees here
    giveTurns();
}

void endTurns() {
    taking = false;
    for (Thread& thread : threads()) {
        open(thread);
    }
}

void pause() {
    static const auto sleep = next<int (*)(const timespec*, timespec*)>("nanosleep");
    constexpr timespec moment{.tv_sec = 0, .tv_nsec = 20'000};
    sleep(&moment, nullptr);
}

bool childRuns() {
    siginfo_t info{};
    return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT | __WALL) == 0 && info.si_pid == 0;
}

} // namespace quor::test
