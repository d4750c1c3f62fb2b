#include <quillory/arguments/Completion.h>
#include <quillory/arguments/ShellText.h>

namespace quillory {
namespace {

// What the command line has before the cursor chooses the case of a command, which says what may
// come next.
constexpr const char* kScript = R"(# bash completion of @PROGRAM@
_@NAME@() {
    local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
    # --option=value comes as three words.
    [[ $current != = ]] || current=
    [[ $option != = ]] || option=${COMP_WORDS[COMP_CWORD - 2]}
    local command=@PROGRAM@ at=1
    local known='|@KNOWN@|'
    while ((at < COMP_CWORD)) && [[ $known == *"|$command ${COMP_WORDS[at]}|"* ]]; do
        command+=" ${COMP_WORDS[at++]}"
    done
    local before=" ${COMP_WORDS[*]:1:COMP_CWORD-1} "
    local isvalue='' files='' word commands=() options=() values=()
    [[ $before != *' -- '* ]] || option=
    case $command in
@CASES@    esac
    COMPREPLY=()
    if [[ -z $isvalue && $current == -* && $before != *' -- '* ]]; then
        values=("${options[@]}")
        files=
    elif [[ -z $isvalue ]] && ((at == COMP_CWORD)); then
        values+=("${commands[@]}")
    fi
    for word in "${values[@]}"; do
        [[ ${word,,} != "${current,,}"* ]] || COMPREPLY+=("$word")
    done
    [[ -n $files ]] || return 0
    compopt -o filenames 2> /dev/null
    while IFS= read -r word; do
        COMPREPLY+=("$word")
    done < <(compgen -f -- "$current")
}
complete -F _@NAME@ @PROGRAM@
)";

std::string List(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) list += (list.empty() ? "" : " ") + ShellQuoted(word);
    return "(" + list + ")";
}

// What the value of an option, or of the positional arguments, may be.
std::string BashValues(const std::vector<std::string>& values, bool areFiles) {
    std::string text;
    if (!values.empty()) text += " values=" + List(values);
    if (areFiles) text += " files=yes";
    return text;
}

// Once an option that takes a value is given, nothing but its value can come.
std::string OptionCase(const ArgumentDefinition& option) {
    std::string pattern;
    for (const std::string& name : option.names) pattern += (pattern.empty() ? "" : " | ") + name;
    return "                " + pattern + ") isvalue=yes" +
           BashValues(option.Offered(), option.isFile) + " ;;\n";
}

std::string Case(const NamedCommand& command) {
    std::vector<std::string> commands;
    for (const CommandDefinition& under : command.definition.commands) {
        commands.push_back(under.name);
    }
    std::vector<std::string> options;
    std::vector<std::string> values;
    std::string cases;
    bool areFiles = false;
    for (const ArgumentDefinition& argument : command.definition.arguments) {
        if (argument.kind == kPositionalArgument) {
            const std::vector<std::string>& offered = argument.Offered();
            values.insert(values.end(), offered.begin(), offered.end());
            areFiles = areFiles || argument.isFile;
            continue;
        }
        options.insert(options.end(), argument.names.begin(), argument.names.end());
        if (argument.kind == kOptionArgument) cases += OptionCase(argument);
    }
    return "        " + ShellQuoted(command.Joined(" ")) +
           ")\n            commands=" + List(commands) + "\n            options=" + List(options) +
           "\n            case $option in\n" + cases + "                *)" +
           BashValues(values, areFiles) + " ;;\n            esac ;;\n";
}

}  // namespace

std::string BashCompletion(const CommandDefinition& program) {
    std::string known;
    std::string cases;
    for (const NamedCommand& command : AllCommands(program)) {
        known += (known.empty() ? "" : "|") + command.Joined(" ");
        cases += Case(command);
    }
    return FilledScript(kScript, {{"@NAME@", ShellName(program.name)},
                                  {"@PROGRAM@", program.name},
                                  {"@KNOWN@", known},
                                  {"@CASES@", cases}});
}

}  // namespace quillory
