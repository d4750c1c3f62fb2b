#pragma once

#include <quillory/cli/Commands.h>

namespace quillory {

// The commands under `records`.
void AddRecordsAdd(CLI::App& records, Run& run);
void AddRecordsList(CLI::App& records, Run& run);

}  // namespace quillory
