#pragma once

#include <quillory/jobs/JobPort.h>

#include <string>
#include <vector>

namespace quillory {

// Keeps what a job says.
class MemoryPort : public JobPort {
public:
    void Say(const Message& message) override {
        lines.push_back(MessageLine(message));
        codes.push_back(message.fault == nullptr ? FaultCode{} : message.fault->code);
    }

    std::vector<std::string> lines;
    std::vector<FaultCode> codes;  // of each line
};

}  // namespace quillory
