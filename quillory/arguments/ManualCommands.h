#pragma once

#include <quillory/arguments/Arguments.h>

namespace quillory {

// Adds the commands that print what is declared of a program, with the commands it has by then or
// gets later: "help" as --help does, "man" as pages of the manual, "completion" as scripts of
// shells. The program outlives them, as the owner of its commands.
void DeclareManualCommands(Arguments& program);

}  // namespace quillory
