#include <quillory/arguments/Completion.h>
#include <quillory/arguments/ManualCommands.h>
#include <quillory/arguments/ManualPage.h>
#include <quillory/arguments/MeantName.h>
#include <quillory/arguments/StandardStreams.h>
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

struct HelpOptions {
    Arguments* program = nullptr;
    std::vector<std::string> command;
};

struct CompletionOptions {
    Arguments* program = nullptr;
    Completion completion = nullptr;
    std::string values;  // the argument whose values are to be printed
    std::function<void(const std::string& path)> checkOutput;
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

// The command of these names, with that of the program before them. Throws UsageError.
const NamedCommand& FindCommand(const std::vector<NamedCommand>& commands,
                                const std::vector<std::string>& names) {
    const NamedCommand* found = &commands.front();
    std::vector<std::string> path = found->names;
    for (const std::string& name : names) {
        path.push_back(name);
        const auto under = std::ranges::find(commands, path, &NamedCommand::names);
        if (under == commands.end()) {
            std::vector<std::string> known;
            for (const CommandDefinition& command : found->definition.commands) {
                known.push_back(command.name);
            }
            throw UsageError("there is no command \"" + NamedCommand{names, {}}.Joined(" ") + "\"" +
                             MeantNames(name, known));
        }
        found = &*under;
    }
    return *found;
}

int RunManual(const ManualOptions& options) {
    const std::vector<NamedCommand> commands = AllCommands(options.program->Definition());
    const std::string& version = options.program->Version();
    if (!options.folder.empty()) {
        WritePages(commands, version, options.folder);
        return kWell;
    }
    WriteOutput("-", ManualPage(FindCommand(commands, options.command), version));
    return kWell;
}

int RunHelp(const HelpOptions& options) {
    const std::vector<NamedCommand> commands = AllCommands(options.program->Definition());
    FindCommand(commands, options.command);  // else help would be that of the program
    std::vector<std::string> words = options.command;
    words.emplace_back("--help");
    WriteOutput("-", options.program->Parse(words, ColumnsOfHelp()).text);
    return kWell;
}

// Those that shells offer as the value of an argument now.
std::string ValuesOf(const std::string& name, const CommandDefinition& program) {
    for (const NamedCommand& command : AllCommands(program)) {
        for (const ArgumentDefinition& argument : command.definition.arguments) {
            if (!argument.offersNow || command.NameOf(argument) != name) continue;
            std::string lines;
            for (const std::string& value : argument.offersNow()) lines += value + "\n";
            return lines;
        }
    }
    throw UsageError("there are no values for \"" + name + "\"");
}

int RunCompletion(const CompletionOptions& options) {
    if (options.checkOutput) options.checkOutput(options.output);
    if (!options.values.empty() && options.completion != nullptr) {
        throw UsageError("--values goes without SHELL");
    }
    if (!options.values.empty()) {
        WriteOutput(options.output, ValuesOf(options.values, options.program->Definition()));
        return kWell;
    }
    if (options.completion == nullptr) throw UsageError("SHELL is required: bash, zsh or fish");
    WriteOutput(options.output, options.completion(options.program->Definition()));
    return kWell;
}

void DeclareManual(Arguments& program, Arguments& command) {
    ManualOptions& options = command.Runs(RunManual);
    options.program = &program;
    command.Positional("COMMAND", options.command, "The command; none for the program")
        .NamesCommand();
    command
        .Option("-o,--output", options.folder,
                "Write the pages of all commands into this folder, each to a file of its own")
        .Shown("FOLDER")
        .File();
}

void DeclareHelp(Arguments& program, Arguments& command) {
    HelpOptions& options = command.Runs(RunHelp);
    options.program = &program;
    command.Positional("COMMAND", options.command, "The command; none for the program")
        .NamesCommand();
}

void DeclareCompletion(Arguments& program, Arguments& command,
                       const std::function<void(const std::string& path)>& checkOutput) {
    CompletionOptions& options = command.Runs(RunCompletion);
    options.program = &program;
    options.checkOutput = checkOutput;
    command.Choice("SHELL", options.completion,
                   {{"bash", BashCompletion}, {"zsh", ZshCompletion}, {"fish", FishCompletion}},
                   "The shell");
    command
        .Option("--values", options.values,
                "Print what a shell may offer now as a value, such as names of workforms for "
                "\"new --workform\"; the scripts ask for it")
        .Shown("ARGUMENT")
        .NeverEmpty();
    command.Option("-o,--output", options.output, "The file to write; standard output if not given")
        .File();
}

}  // namespace

void DeclareManualCommands(Arguments& program,
                           const std::function<void(const std::string& path)>& checkOutput) {
    program.Command("help", "Print what --help says of a command",
                    [&program](Arguments& command) { DeclareHelp(program, command); });
    program.Command("man", "Print the manual page of a command, in troff",
                    [&program](Arguments& command) { DeclareManual(program, command); });
    program.Command("completion",
                    "Print what makes a shell complete the command lines of the program",
                    [&program, checkOutput](Arguments& command) {
                        DeclareCompletion(program, command, checkOutput);
                    });
}

}  // namespace quillory
