#pragma once

#include <quillory/jobs/WriteRecords.h>

namespace CLI {
class App;
}

namespace quillory {

// Where a command writes records, and how.
void AddOutputOptions(CLI::App& command, OutputOptions& options);

}  // namespace quillory
