#pragma once

#include <quillory/arguments/Arguments.h>

#include <functional>
#include <string>

namespace quillory {

// Adds the commands that print what is declared of a program, with the commands it has by then or
// gets later: "help" as --help does, "man" as pages of the manual, "completion" as scripts of
// shells. The program outlives them, as the owner of its commands. `checkOutput` throws UsageError
// for a file that must not be written; it may be empty.
void DeclareManualCommands(Arguments& program,
                           const std::function<void(const std::string& path)>& checkOutput = {});

}  // namespace quillory
