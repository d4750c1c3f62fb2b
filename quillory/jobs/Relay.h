#pragma once

#include <quillory/jobs/ItemWorker.h>

namespace quillory {

// Passes on what a worker says, as a step of its own.
class Relay : public JobPort {
public:
    // Keeps the references.
    Relay(Reporter& reporter, Steps& steps) : reporter_(reporter), steps_(steps) {}

    void Say(const Message& message) override;

private:
    Reporter& reporter_;
    Steps& steps_;
};

}  // namespace quillory
