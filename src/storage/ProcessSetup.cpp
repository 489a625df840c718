#include "storage/ProcessSetup.h"

#include <cerrno>
#include <csignal>
#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace quor {

void failAtFileSizeLimit() {
    std::signal(SIGXFSZ, SIG_IGN);
}

void occupyStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0 && errno == EBADF) {
            // The lowest free number is this one. Programs that are started inherit it.
            const int wrongWay = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
            if (open("/dev/null", wrongWay) < 0) { // NOLINT(android-cloexec-open)
                return;
            }
        }
    }
}

} // namespace quor
