#include <quillory/arguments/Completion.h>
#include <quillory/arguments/ShellText.h>

namespace quillory {
namespace {

// The words of the command line, as far as they name a command.
constexpr const char* kBegin = R"(# fish completion of @PROGRAM@
set -g __@NAME@_commands@KNOWN@

function __@NAME@_is
    set -l command @PROGRAM@
    for word in (commandline -opc)[2..]
        contains -- "$command $word" $__@NAME@_commands; or break
        set command "$command $word"
    end
    test "$command" = "$argv"
end

# What stands next in the name of a command, after the words before the cursor.
function __@NAME@_names
    set -l above (string join ' ' @PROGRAM@ (commandline -opc)[3..] | string escape --style=regex)
    string replace -rf "^$above ([^ ]+)\$" '$1' $__@NAME@_commands
end

complete -c @PROGRAM@ -f
)";

std::string FishQuoted(const std::string& text) {
    return ShellQuoted(Backslashed(text, "\\"), "\\'");
}

std::string Spaced(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

std::string FishValues(const NamedCommand& command, const ArgumentDefinition& argument) {
    std::string text;
    const std::string& program = command.names.front();
    if (argument.namesCommand) text = " -a '(__" + ShellName(program) + "_names)'";
    if (argument.offersNow) {
        const std::string asked = FishQuoted(command.NameOf(argument));
        text =
            " -a " + FishQuoted("(" + program + " completion --values " + asked + " 2> /dev/null)");
    }
    if (!argument.Offered().empty()) text = " -a " + FishQuoted(Spaced(argument.Offered()));
    return argument.isFile ? text + " -F" : text;
}

std::string ArgumentPart(const NamedCommand& command, const ArgumentDefinition& argument) {
    if (argument.kind == kPositionalArgument) return FishValues(command, argument);
    std::string part;
    for (const std::string& name : argument.names) {
        const bool isLong = name.starts_with("--");
        part += isLong ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    if (argument.kind == kOptionArgument) {
        part += (argument.isFile ? " -r" : " -x") + FishValues(command, argument);
    }
    return part + " -d " + FishQuoted(argument.text);
}

// Each of these lines holds for one command.
std::string Lines(const NamedCommand& command) {
    const std::string& program = command.names.front();
    const std::string is = FishQuoted("__" + ShellName(program) + "_is " + command.Joined(" "));
    const std::string begin = "complete -c " + program + " -n " + is;
    std::string lines;
    for (const CommandDefinition& under : command.definition.commands) {
        lines += begin + " -a " + under.name + " -d " + FishQuoted(under.summary) + "\n";
    }
    for (const ArgumentDefinition& argument : command.definition.arguments) {
        const std::string part = ArgumentPart(command, argument);
        if (!part.empty()) lines += begin + part + "\n";
    }
    return lines;
}

}  // namespace

std::string FishCompletion(const CommandDefinition& program) {
    std::string known;
    std::string lines;
    for (const NamedCommand& command : AllCommands(program)) {
        known += " " + FishQuoted(command.Joined(" "));
        lines += Lines(command);
    }
    return FilledScript(kBegin, {{"@NAME@", ShellName(program.name)},
                                 {"@PROGRAM@", program.name},
                                 {"@KNOWN@", known}}) +
           lines;
}

}  // namespace quillory
