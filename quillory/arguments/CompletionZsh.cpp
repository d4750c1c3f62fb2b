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

// What may be the value of an argument: one of a few words, a file, or a text.
std::string Action(const ArgumentDefinition& argument) {
    std::string action = ":" + Backslashed(argument.value, ":\\") + ":";
    if (argument.isFile) action += "_files";
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
std::string OptionWords(const ArgumentDefinition& option) {
    std::string words;
    for (const std::string& name : option.names) {
        const bool hasValue = option.kind == kOptionArgument;
        std::string word = Excluded(option) + name;
        if (hasValue) word += name.starts_with("--") ? "=" : "+";
        word += "[" + Backslashed(option.text, "\\[]:") + "]";
        if (hasValue) word += Action(option);
        words += " \\\n        " + ShellQuoted(word);
    }
    return words;
}

std::string PositionalWord(const ArgumentDefinition& argument) {
    const std::string lead = argument.isList ? "*" : argument.isRequired ? "" : ":";
    ArgumentDefinition shown = argument;
    shown.value = argument.names.front();
    return " \\\n        " + ShellQuoted(lead + Action(shown));
}

std::string ArgumentWords(const CommandDefinition& command) {
    std::string words;
    for (const ArgumentDefinition& argument : command.arguments) {
        words +=
            argument.kind == kPositionalArgument ? PositionalWord(argument) : OptionWords(argument);
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
    std::string script = "#compdef " + program.name + "\n";
    for (const NamedCommand& command : AllCommands(program)) {
        script += FilledScript(kFunction, {{"@NAME@", command.Joined("_")},
                                           {"@COMMANDS@", CommandRows(command.definition)},
                                           {"@ARGUMENTS@", ArgumentWords(command.definition)}});
    }
    // Loaded from a folder of functions, the file is the function itself.
    return script + FilledScript(
                        "\nif [[ $funcstack[1] == _@NAME@ ]]; then\n    _@NAME@ \"$@\"\n"
                        "else\n    compdef _@NAME@ @NAME@\nfi\n",
                        {{"@NAME@", program.name}});
}

}  // namespace quillory
