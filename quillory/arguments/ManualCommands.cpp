#include <quillory/arguments/Completion.h>
#include <quillory/arguments/ManualCommands.h>
#include <quillory/arguments/ManualPage.h>
#include <quillory/exchange/Output.h>

#include <algorithm>

namespace quillory {
namespace {

using Completion = std::string (*)(const CommandDefinition& program);

struct ManualOptions {
    const Arguments* program = nullptr;
    std::vector<std::string> command;
    std::string folder;
};

struct CompletionOptions {
    const Arguments* program = nullptr;
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

}  // namespace

void DeclareManualCommands(Arguments& program) {
    Arguments& manual = program.Command("man", "Print the manual page of a command, in troff");
    ManualOptions& page = manual.Runs(RunManual);
    page.program = &program;
    manual.Positional("COMMAND", page.command, "The command; none for that of the program");
    manual
        .Option("-o,--output", page.folder,
                "Write the pages of all commands into this folder, each to a file of its own")
        .Shown("FOLDER")
        .File();

    Arguments& completion = program.Command(
        "completion", "Print what makes a shell complete the command lines of the program");
    CompletionOptions& shell = completion.Runs(RunCompletion);
    shell.program = &program;
    completion
        .Choice("SHELL", shell.completion,
                {{"bash", BashCompletion}, {"zsh", ZshCompletion}, {"fish", FishCompletion}},
                "The shell")
        .Required();
    completion
        .Option("-o,--output", shell.output, "The file to write; standard output if not given")
        .File();
}

}  // namespace quillory
