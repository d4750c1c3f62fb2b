#pragma once

#include <quillory/arguments/ArgumentDefinition.h>

#include <string>
#include <vector>

namespace quillory {

// A command with the names that call it: "quillory", "records", "add".
struct NamedCommand {
    std::vector<std::string> names;
    CommandDefinition definition;

    std::string Joined(const std::string& separator) const;
    // What `completion --values` knows an argument by, without the program: "new --workform".
    std::string NameOf(const ArgumentDefinition& argument) const;
};

// A program and all commands under it, each before its own.
std::vector<NamedCommand> AllCommands(const CommandDefinition& program);

}  // namespace quillory
