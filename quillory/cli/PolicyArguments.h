#pragma once

#include <quillory/jobs/RecordPolicy.h>

namespace CLI {
class App;
}

namespace quillory {

// What a command that checks records holds them to.
void AddPolicyOptions(CLI::App& command, PolicyOptions& options);

}  // namespace quillory
