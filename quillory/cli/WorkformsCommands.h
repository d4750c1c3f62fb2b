#pragma once

#include <quillory/cli/Commands.h>

namespace quillory {

// The commands under `workforms`.
void AddWorkformsSave(CLI::App& workforms, Run& run);
void AddWorkformsDelete(CLI::App& workforms, Run& run);
void AddWorkformsExport(CLI::App& workforms, Run& run);
void AddWorkformsImport(CLI::App& workforms, Run& run);

}  // namespace quillory
