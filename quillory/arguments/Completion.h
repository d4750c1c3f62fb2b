#pragma once

#include <quillory/arguments/NamedCommand.h>

#include <string>

namespace quillory {

// Scripts by which a shell completes the command lines of a program: the names of commands and
// options, the values of options that have a few or offer some, and the names of files where one is
// expected.
std::string BashCompletion(const CommandDefinition& program);
std::string ZshCompletion(const CommandDefinition& program);
std::string FishCompletion(const CommandDefinition& program);

}  // namespace quillory
