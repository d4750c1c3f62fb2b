#include <quillory/arguments/NamedCommand.h>

namespace quillory {
namespace {

void Collect(const CommandDefinition& command, std::vector<std::string> names,
             std::vector<NamedCommand>& commands) {
    names.push_back(command.name);
    commands.push_back({names, command});
    for (const CommandDefinition& under : command.commands) Collect(under, names, commands);
}

}  // namespace

std::string NamedCommand::Joined(const std::string& separator) const {
    std::string joined;
    for (const std::string& name : names) joined += (joined.empty() ? "" : separator) + name;
    return joined;
}

std::vector<NamedCommand> AllCommands(const CommandDefinition& program) {
    std::vector<NamedCommand> commands;
    Collect(program, {}, commands);
    return commands;
}

}  // namespace quillory
