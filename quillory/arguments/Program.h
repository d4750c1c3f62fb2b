#pragma once

#include <quillory/arguments/Arguments.h>

namespace quillory {

// Runs what a command line asks for, as main gets it. Help and the version go to standard output.
// Result: the status to end with, which is that of the command; 2 for wrong usage or a failure,
// the reason of which is said on standard error; 0 if the reader of a pipe has gone.
int RunProgram(Arguments& program, int argc, const char* const* argv);

}  // namespace quillory
