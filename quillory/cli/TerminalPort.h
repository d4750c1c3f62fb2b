#pragma once

#include <quillory/jobs/JobPort.h>

#include <chrono>

namespace quillory {

// Messages on standard error, a line each after the program's name, and how far long work has come
// as a line that is drawn over; no such line where standard error is no terminal.
class TerminalPort : public JobPort {
public:
    TerminalPort();

    void Say(const Message& message) override;
    void BeginProgress() override;
    void ShowProgress(const JobProgress& progress) override;
    void EndProgress() override;

private:
    using Clock = std::chrono::steady_clock;

    bool isTerminal_;
    bool isDrawn_ = false;
    Clock::time_point start_;
    Clock::time_point next_;
};

}  // namespace quillory
