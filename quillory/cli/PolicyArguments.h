#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/RecordPolicy.h>

namespace quillory {

// What a command that checks records holds them to.
void DeclarePolicy(Arguments& command, PolicyOptions& options);

}  // namespace quillory
