#include <quillory/arguments/StandardStreams.h>

#include <algorithm>
#include <fcntl.h>
#include <initializer_list>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quillory {

// The lowest number that is free is the one that is given. Each is opened for the direction that
// nobody uses: data must not vanish where the caller wants none.
void ReserveStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) >= 0) continue;
        if (open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
    }
}

std::optional<std::size_t> ColumnsOfOutput() {
    winsize size{};
    const bool isTerminal = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return isTerminal && size.ws_col > 0 ? std::optional<std::size_t>(size.ws_col) : std::nullopt;
}

std::size_t ColumnsOfHelp() {
    constexpr std::size_t kMost = 100;
    constexpr std::size_t kUsual = 80;
    return std::min(ColumnsOfOutput().value_or(kUsual), kMost);
}

}  // namespace quillory
