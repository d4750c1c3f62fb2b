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

std::string NamedCommand::NameOf(const ArgumentDefinition& argument) const {
    std::string name;
    for (std::size_t i = 1; i < names.size(); ++i) name += names[i] + " ";
    return name + argument.names.back();
}

std::vector<NamedCommand> AllCommands(const CommandDefinition& program) {
    std::vector<NamedCommand> commands;
    Collect(program, {}, commands);
    return commands;
}

}  // namespace quillory
