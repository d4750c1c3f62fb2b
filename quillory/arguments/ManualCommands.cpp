#include <quillory/arguments/Completion.h>
#include <quillory/arguments/ManualCommands.h>
#include <quillory/arguments/ManualPage.h>
#include <quillory/exchange/Output.h>

#include <algorithm>

namespace quillory {
namespace {

using Completion = std::string (*)(const CommandDefinition& program);

struct ManualOptions {
    Arguments* program = nullptr;
    std::vector<std::string> command;
    std::string folder;
};

struct CompletionOptions {
    Arguments* program = nullptr;
    Completion completion = nullptr;
    std::string output = "-";
};

void WritePages(const std::vector<NamedCommand>& commands, const std::string& version,
                const std::string& folder) {
    for (const NamedCommand& command : commands) {
        std::string path = folder;
        path.append("/").append(ManualPageName(command)).append(".1");
        WriteOutput(path, ManualPage(command, version));
    }
}

int RunManual(const ManualOptions& options) {
    const std::vector<NamedCommand> commands = AllCommands(options.program->Definition());
    const std::string& version = options.program->Version();
    if (!options.folder.empty()) {
        WritePages(commands, version, options.folder);
        return kWell;
    }
    std::vector<std::string> names{options.program->Name()};
    names.insert(names.end(), options.command.begin(), options.command.end());
    const auto command = std::ranges::find(commands, names, &NamedCommand::names);
    if (command == commands.end()) {
        throw UsageError("there is no command \"" + NamedCommand{options.command, {}}.Joined(" ") +
                         "\"");
    }
    WriteOutput("-", ManualPage(*command, version));
    return kWell;
}

int RunCompletion(const CompletionOptions& options) {
    WriteOutput(options.output, options.completion(options.program->Definition()));
    return kWell;
}

void DeclareManual(Arguments& program, Arguments& command) {
    ManualOptions& options = command.Runs(RunManual);
    options.program = &program;
    command.Positional("COMMAND", options.command, "The command; none for that of the program");
    command
        .Option("-o,--output", options.folder,
                "Write the pages of all commands into this folder, each to a file of its own")
        .Shown("FOLDER")
        .File();
}

void DeclareCompletion(Arguments& program, Arguments& command) {
    CompletionOptions& options = command.Runs(RunCompletion);
    options.program = &program;
    command
        .Choice("SHELL", options.completion,
                {{"bash", BashCompletion}, {"zsh", ZshCompletion}, {"fish", FishCompletion}},
                "The shell")
        .Required();
    command.Option("-o,--output", options.output, "The file to write; standard output if not given")
        .File();
}

}  // namespace

void DeclareManualCommands(Arguments& program) {
    program.Command("man", "Print the manual page of a command, in troff",
                    [&program](Arguments& command) { DeclareManual(program, command); });
    program.Command("completion",
                    "Print what makes a shell complete the command lines of the program",
                    [&program](Arguments& command) { DeclareCompletion(program, command); });
}

}  // namespace quillory
