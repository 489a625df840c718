#include "robustness/Place.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/personality.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quor::test {

namespace {

constexpr const char* lockVariable = "MONKEY_PLACE";

[[noreturn]] void fail(const std::string& reason) {
    std::fprintf(stderr, "monkey: %s\n", reason.c_str());
    std::exit(1);
}

void empty(const std::string& folder) {
    std::error_code fault;
    for (const auto& entry : std::filesystem::directory_iterator(folder, fault)) {
        std::filesystem::remove_all(entry, fault);
    }
    if (fault) {
        fail("cannot empty " + folder + ": " + fault.message());
    }
}

/// The first folder in which no other run is. Names differ in digits, which are all of one width.
std::string takeFolder(int& lock) {
    for (int number = 10; number < 100; ++number) {
        std::string folder =
            "/tmp/quor-monkey-" + std::to_string(geteuid()) + '-' + std::to_string(number);
        mkdir(folder.c_str(), S_IRWXU);
        lock = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
        struct stat status {};
        if (lock >= 0 && fstat(lock, &status) == 0 && status.st_uid == geteuid() &&
            flock(lock, LOCK_EX | LOCK_NB) == 0) {
            empty(folder);
            return folder;
        }
        if (lock >= 0) {
            close(lock);
        }
    }
    fail("no folder in /tmp is free");
}

/// The toolkit takes chance from the processor where it can, and then nobody can repeat it. It is
/// told that this one has none, and asks the system; see Turns.cpp.
void forgetChanceOfProcessor() {
    constexpr std::uint64_t generators = (1U << 11U) | (1U << 17U); // as in qsimd_x86_p.h
    if (void* features = dlsym(RTLD_DEFAULT, "qt_cpu_features")) {
        *static_cast<std::atomic<std::uint64_t>*>(features) &= ~generators;
    }
}

/// What of the caller's environment the run may see.
bool isKept(std::string_view variable) {
    constexpr std::array kept{"PATH=", "LD_", "ASAN_", "LSAN_", "UBSAN_", "MONKEY_"};
    return std::ranges::any_of(kept,
                               [&](const char* begin) { return variable.starts_with(begin); });
}

} // namespace

void beginInPlace(char** arguments) {
    if (const char* lock = std::getenv(lockVariable)) {
        fcntl(std::atoi(lock), F_SETFD, FD_CLOEXEC); // no process that outlives this one keeps it
        unsetenv(lockVariable);
#if defined(__x86_64__)
        forgetChanceOfProcessor();
#endif
        return;
    }
    int lock = -1;
    const std::string folder = takeFolder(lock);
    std::vector<std::string> environment{
        lockVariable + ('=' + std::to_string(lock)),
        "TMPDIR=" + folder,
        "LC_ALL=C.UTF-8",
        "QT_NO_GLIB=1", // the plain event loop: what is due comes as it was asked for
        "QT_HASH_SEED=0",
        "CUPS_SERVER=/nonexistent", // nothing is ever printed on paper
    };
    for (char** variable = environ; *variable != nullptr; ++variable) {
        if (isKept(*variable)) {
            environment.emplace_back(*variable);
        }
    }
    std::vector<char*> pointers;
    for (std::string& variable : environment) {
        pointers.push_back(variable.data());
    }
    pointers.push_back(nullptr);
    // Where that is not allowed, as in some containers, addresses change; hardly anything goes by
    // them.
    personality(static_cast<unsigned long>(personality(0xffffffff)) | ADDR_NO_RANDOMIZE);
    execve("/proc/self/exe", arguments, pointers.data());
    fail(std::string("cannot start again: ") + std::strerror(errno));
}

} // namespace quor::test
