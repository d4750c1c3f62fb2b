#pragma once

#include <quillory/jobs/Reporter.h>

#include <functional>

namespace CLI {
class App;
}

namespace quillory {

// Each adds a command to the program; `run` is what to do if it is the one that was called.
// FileError and ClosedPipe are left to the caller.
using Run = std::function<Status()>;

void AddCatalog(CLI::App& program, Run& run);
void AddCheck(CLI::App& program, Run& run);
void AddCodes(CLI::App& program, Run& run);
void AddConvert(CLI::App& program, Run& run);
void AddDescribe(CLI::App& program, Run& run);
void AddExport(CLI::App& program, Run& run);
void AddNew(CLI::App& program, Run& run);
void AddRecords(CLI::App& program, Run& run);
void AddSettings(CLI::App& program, Run& run);
void AddRepair(CLI::App& program, Run& run);
void AddShow(CLI::App& program, Run& run);
void AddWorkforms(CLI::App& program, Run& run);

}  // namespace quillory
