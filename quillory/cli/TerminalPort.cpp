#include <quillory/cli/TerminalPort.h>
#include <quillory/text/Visible.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace quillory {
namespace {

constexpr const char* kClearLine = "\r\033[K";

std::string Bar(double share) {
    constexpr std::size_t kWidth = 24;
    const auto full = static_cast<std::size_t>(share * static_cast<double>(kWidth));
    return std::string(full, '#') + std::string(kWidth - full, '.');
}

}  // namespace

TerminalPort::TerminalPort() : isTerminal_(isatty(STDERR_FILENO) != 0) {}

void TerminalPort::Say(const Message& message) {
    std::string line = MessageLine(message);
    if (line.ends_with('\n')) line.pop_back();
    if (isTerminal_) line = VisibleLines(line);
    if (isDrawn_) std::fputs(kClearLine, stderr);
    isDrawn_ = false;
    std::fprintf(stderr, "quillory: %s\n", line.c_str());
}

void TerminalPort::BeginProgress() {
    start_ = Clock::now();
    next_ = start_ + std::chrono::seconds(1);
}

void TerminalPort::ShowProgress(const JobProgress& progress) {
    if (!isTerminal_) return;
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    next_ = now + std::chrono::milliseconds(250);
    isDrawn_ = true;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    const double rate = static_cast<double>(progress.records) / seconds;
    std::fprintf(stderr, "%s%" PRIu64 " records, %.0f a second", kClearLine, progress.records,
                 rate);
    if (progress.total > 0 && progress.done > 0) {
        const double share =
            std::min(1.0, static_cast<double>(progress.done) / static_cast<double>(progress.total));
        std::fprintf(stderr, "  [%s] %.0f s left", Bar(share).c_str(),
                     seconds / share * (1 - share));
    }
    std::fflush(stderr);
}

void TerminalPort::EndProgress() {
    if (isDrawn_) std::fputs(kClearLine, stderr);
    isDrawn_ = false;
}

}  // namespace quillory
