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

std::string Quoted(const std::string& text) {
    return ShellQuoted(text, "'\\''");
}

// What may be the value of an argument: one of a few words, a file, or a text.
std::string Action(const ArgumentDefinition& argument) {
    std::string action = ":" + Backslashed(argument.value, ":\\") + ":";
    if (argument.isFile) action += "_files";
    if (argument.choices.empty()) return action;
    action += "(";
    for (const std::string& choice : argument.choices) {
        action += (action.ends_with('(') ? "" : " ") + Backslashed(choice, "\\ ()|:");
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

std::string OptionSpecs(const ArgumentDefinition& option) {
    std::string specs;
    for (const std::string& name : option.names) {
        const bool hasValue = option.kind == kOptionArgument;
        std::string spec = Excluded(option) + name;
        if (hasValue) spec += name.starts_with("--") ? "=" : "+";
        spec += "[" + Backslashed(option.text, "\\[]:") + "]";
        if (hasValue) spec += Action(option);
        specs += " \\\n        " + Quoted(spec);
    }
    return specs;
}

std::string PositionalSpec(const ArgumentDefinition& argument) {
    const std::string lead = argument.isList ? "*" : argument.isRequired ? "" : ":";
    ArgumentDefinition shown = argument;
    shown.value = argument.names.front();
    return " \\\n        " + Quoted(lead + Action(shown));
}

std::string Specs(const CommandDefinition& command) {
    std::string specs;
    for (const ArgumentDefinition& argument : command.arguments) {
        specs +=
            argument.kind == kPositionalArgument ? PositionalSpec(argument) : OptionSpecs(argument);
    }
    return specs;
}

std::string CommandRows(const CommandDefinition& command) {
    std::string rows;
    for (const CommandDefinition& under : command.commands) {
        const std::string row = under.name + ":" + Backslashed(under.summary, "\\:");
        rows += "\n        " + Quoted(row);
    }
    return rows;
}

}  // namespace

std::string ZshCompletion(const CommandDefinition& program) {
    std::string script = "#compdef " + program.name + "\n";
    for (const NamedCommand& command : AllCommands(program)) {
        script += FilledScript(kFunction, {{"@NAME@", command.Joined("_")},
                                           {"@COMMANDS@", CommandRows(command.definition)},
                                           {"@ARGUMENTS@", Specs(command.definition)}});
    }
    // Loaded from a folder of functions, the file is the function itself.
    return script + FilledScript(
                        "\nif [[ $funcstack[1] == _@NAME@ ]]; then\n    _@NAME@ \"$@\"\n"
                        "else\n    compdef _@NAME@ @NAME@\nfi\n",
                        {{"@NAME@", program.name}});
}

}  // namespace quillory
