#include <quillory/arguments/Completion.h>
#include <quillory/arguments/ShellText.h>

namespace quillory {
namespace {

// A function for each command.
constexpr const char* kFunction = R"(
_@NAME@() {
    local -a commands=(@COMMANDS@)
    if (( CURRENT > 2 )) && [[ -n ${(M)commands:#${words[2]}:*} ]]; then
        shift words
        (( CURRENT -= 1 ))
        _@NAME@_$words[1]
        return
    fi
    (( CURRENT == 2 && $#commands )) && _describe -t commands command commands
    _arguments -S -s : @ARGUMENTS@
}
)";

// What the functions of commands call.
constexpr const char* kHelpers = R"zsh(
_@NAME@_values() {
    local -a values=(${(f)"$(@NAME@ completion --values "$*" 2> /dev/null)"})
    compadd -M 'm:{a-zA-Z}={A-Za-z}' -a values
}

_@NAME@_names() {
    local above="@NAME@ ${(j: :)words[2,CURRENT-1]}"
    local -a known=(@KNOWN@)
    known=(${${(M)known:#${above% } *}#${above% } })
    compadd -- ${known:#* *}
}
)zsh";

// What may be the value of an argument: one of a few words, a file, or a text.
std::string Action(const NamedCommand& command, const ArgumentDefinition& argument) {
    const std::string function = " _" + command.names.front();
    std::string action = ":" + Backslashed(argument.value, ":\\") + ":";
    if (argument.isFile) action += "_files";
    if (argument.namesCommand) action += function + "_names";
    if (argument.offersNow) action += function + "_values " + command.NameOf(argument);
    if (argument.Offered().empty()) return action;
    action += "(";
    for (const std::string& value : argument.Offered()) {
        action += (action.ends_with('(') ? "" : " ") + Backslashed(value, "\\ ()|:");
    }
    return action + ")";
}

// Where an option is given, those beside which it can't stand aren't offered.
std::string Excluded(const ArgumentDefinition& option) {
    if (option.isList) return "*";
    std::string excluded = "(";
    for (const auto* names : {&option.names, &option.excludes}) {
        for (const std::string& name : *names) excluded += (excluded.size() > 1 ? " " : "") + name;
    }
    return excluded + ")";
}

// What _arguments is told of an option, a word for each of its names.
std::string OptionWords(const NamedCommand& command, const ArgumentDefinition& option) {
    std::string words;
    for (const std::string& name : option.names) {
        const bool hasValue = option.kind == kOptionArgument;
        std::string word = Excluded(option) + name;
        if (hasValue) word += name.starts_with("--") ? "=" : "+";
        word += "[" + Backslashed(option.text, "\\[]:") + "]";
        if (hasValue) word += Action(command, option);
        words += " \\\n        " + ShellQuoted(word);
    }
    return words;
}

std::string PositionalWord(const NamedCommand& command, const ArgumentDefinition& argument) {
    const std::string lead = argument.isList ? "*" : argument.isRequired ? "" : ":";
    ArgumentDefinition shown = argument;
    shown.value = argument.names.front();
    return " \\\n        " + ShellQuoted(lead + Action(command, shown));
}

std::string ArgumentWords(const NamedCommand& command) {
    std::string words;
    for (const ArgumentDefinition& argument : command.definition.arguments) {
        words += argument.kind == kPositionalArgument ? PositionalWord(command, argument)
                                                      : OptionWords(command, argument);
    }
    return words;
}

std::string CommandRows(const CommandDefinition& command) {
    std::string rows;
    for (const CommandDefinition& under : command.commands) {
        const std::string row = under.name + ":" + Backslashed(under.summary, "\\:");
        rows += "\n        " + ShellQuoted(row);
    }
    return rows;
}

}  // namespace

std::string ZshCompletion(const CommandDefinition& program) {
    const std::vector<NamedCommand> commands = AllCommands(program);
    std::string known;
    for (const NamedCommand& command : commands) {
        known += "\n        " + ShellQuoted(command.Joined(" "));
    }
    std::string script = "#compdef " + program.name + "\n" +
                         FilledScript(kHelpers, {{"@NAME@", program.name}, {"@KNOWN@", known}});
    for (const NamedCommand& command : commands) {
        script += FilledScript(kFunction, {{"@NAME@", command.Joined("_")},
                                           {"@COMMANDS@", CommandRows(command.definition)},
                                           {"@ARGUMENTS@", ArgumentWords(command)}});
    }
    // Loaded from a folder of functions, the file is the function itself.
    return script + FilledScript(
                        "\nif [[ $funcstack[1] == _@NAME@ ]]; then\n    _@NAME@ \"$@\"\n"
                        "else\n    compdef _@NAME@ @NAME@\nfi\n",
                        {{"@NAME@", program.name}});
}

}  // namespace quillory
