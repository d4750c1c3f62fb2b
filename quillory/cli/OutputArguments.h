#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {

// Where a command writes records, and how.
void DeclareOutput(Arguments& command, OutputOptions& options);
// How alone, for a command that names its outputs in its own way.
void DeclareWriting(Arguments& command, OutputOptions& options);

}  // namespace quillory
