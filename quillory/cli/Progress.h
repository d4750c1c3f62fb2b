#pragma once

#include <chrono>
#include <cstdint>

namespace quillory {

// A line on the terminal that tells how far long work has come; none where standard error is no
// terminal.
class Progress {
public:
    explicit Progress(bool quiet);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // One more record. `done` of `total` bytes of the input; total 0 if not known.
    void Step(std::uint64_t done, std::uint64_t total) {
        constexpr std::uint64_t kStepsALook = 256;
        if (++records_ % kStepsALook == 0 && shown_) Look(done, total);
    }

private:
    using Clock = std::chrono::steady_clock;

    void Look(std::uint64_t done, std::uint64_t total);

    bool shown_;
    bool drawn_ = false;
    std::uint64_t records_ = 0;
    Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_ + std::chrono::seconds(1);
};

}  // namespace quillory
