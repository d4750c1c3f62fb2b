#pragma once

#include <quillory/jobs/JobPort.h>

#include <string>

namespace quillory {

// What a job says, for a window to show.
class CollectedMessages : public JobPort {
public:
    void Say(const Message& message) override { text += MessageLine(message) + '\n'; }

    std::string text;
};

}  // namespace quillory
