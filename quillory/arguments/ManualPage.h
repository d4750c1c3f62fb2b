#pragma once

#include <quillory/arguments/NamedCommand.h>

#include <string>

namespace quillory {

// The name of the page of a command, "quillory-records-add".
std::string ManualPageName(const NamedCommand& command);

// The page of a command for section 1 of the manual, in troff with the macros of man(7). It says
// what --help says. `version` is that of the program.
std::string ManualPage(const NamedCommand& command, const std::string& version);

}  // namespace quillory
