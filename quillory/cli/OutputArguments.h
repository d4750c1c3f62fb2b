#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/WriteRecords.h>

#include <string>

namespace quillory {

// Where a command writes records, and how.
void DeclareOutput(Arguments& command, OutputOptions& options);
// How alone, for a command that names its outputs in its own way.
void DeclareWriting(Arguments& command, OutputOptions& options);
// The file into which a command writes what is no record.
void DeclareReportFile(Arguments& command, std::string& output);

}  // namespace quillory
