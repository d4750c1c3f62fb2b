#include <quillory/cli/Progress.h>

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

Progress::Progress(bool quiet) : shown_(!quiet && isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
    if (drawn_) std::fputs(kClearLine, stderr);
}

void Progress::Look(std::uint64_t done, std::uint64_t total) {
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    next_ = now + std::chrono::milliseconds(250);
    drawn_ = true;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    const double rate = static_cast<double>(records_) / seconds;
    std::fprintf(stderr, "%s%" PRIu64 " records, %.0f a second", kClearLine, records_, rate);
    if (total > 0 && done > 0) {
        const double share = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
        std::fprintf(stderr, "  [%s] %.0f s left", Bar(share).c_str(),
                     seconds / share * (1 - share));
    }
    std::fflush(stderr);
}

}  // namespace quillory
