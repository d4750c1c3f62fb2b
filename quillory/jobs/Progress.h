#pragma once

#include <quillory/jobs/Reporter.h>

#include <cstdint>

namespace quillory {

// Shows how far long work has come, as long as the object lives.
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

    // One more record, or several. `done` of `total`, such as bytes of the input; 0 if the total is
    // not known.
    void Step(std::uint64_t done, std::uint64_t total, std::uint64_t records = 1) {
        constexpr std::uint64_t kStepsALook = 256;
        const bool isTimeToLook = records_ % kStepsALook + records >= kStepsALook;
        records_ += records;
        if (isTimeToLook && isShown_) port_.ShowProgress({records_, done, total});
    }

private:
    JobPort& port_;
    bool isShown_;
    std::uint64_t records_ = 0;
};

}  // namespace quillory
