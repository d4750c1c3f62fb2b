#pragma once

#include <quillory/jobs/JobPort.h>

#include <string>
#include <vector>

namespace quillory {

// Keeps what a job says.
class MemoryPort : public JobPort {
public:
    void Say(const Message& message) override { lines.push_back(MessageLine(message)); }

    std::vector<std::string> lines;
};

}  // namespace quillory
