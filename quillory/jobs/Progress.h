#pragma once

#include <quillory/jobs/Reporter.h>

#include <cstdint>

namespace quillory {

// Tells the port how far long work has come, while the object lives.
class Progress {
public:
    // Keeps the port. Quiet work shows no progress.
    explicit Progress(const Reporter& reporter)
        : port_(reporter.Port()), isShown_(!reporter.Quiet()) {
        if (isShown_) port_.BeginProgress();
    }
    ~Progress() {
        if (isShown_) port_.EndProgress();
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // One more record. `done` of `total`, such as bytes of the input; total 0 if nobody knows.
    void Step(std::uint64_t done, std::uint64_t total) {
        constexpr std::uint64_t kStepsALook = 256;
        if (++records_ % kStepsALook == 0 && isShown_) port_.ShowProgress({records_, done, total});
    }

private:
    JobPort& port_;
    bool isShown_;
    std::uint64_t records_ = 0;
};

}  // namespace quillory
