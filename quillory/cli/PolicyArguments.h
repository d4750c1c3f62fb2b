#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/RecordPolicy.h>
#include <quillory/rules/Rule.h>

#include <optional>

namespace quillory {

// What a command that checks records holds them to.
void DeclarePolicy(Arguments& command, PolicyOptions& options);
// The least weight of a finding that changes the status of a command.
void DeclareFailOn(Arguments& command, std::optional<Severity>& failsOn);

}  // namespace quillory
