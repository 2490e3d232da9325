#include "Platform/Linux/StandardStreams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace orvelle {

void secureStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            open("/dev/null", O_RDWR); // takes the lowest number, which is this one
    // A handler and not SIG_IGN, which the programs that are launched would inherit.
    std::signal(SIGPIPE, [](int) {});
    std::signal(SIGXFSZ, [](int) {}); // a file above the user's limit
}

void writeOrLose(int descriptor, std::string_view line) {
    pollfd stream{descriptor, POLLOUT, 0};
    if (poll(&stream, 1, 0) != 1 || (stream.revents & POLLOUT) == 0)
        return;
    while (write(descriptor, line.data(), line.size()) < 0 && errno == EINTR) {
    }
}

} // namespace orvelle
