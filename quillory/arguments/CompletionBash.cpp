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
    local isvalue='' files='' asked='' names='' word commands=() options=() values=()
    [[ $before != *' -- '* ]] || option=
    case $command in
@CASES@    esac
    COMPREPLY=()
    if [[ -n $names ]]; then
        # The words before the cursor are those of a command, too.
        command=@PROGRAM@
        for word in "${COMP_WORDS[@]:at:COMP_CWORD-at}"; do command+=" $word"; done
        while IFS= read -r -d '|' word; do
            [[ $word != "$command "* || ${word#"$command "} == *' '* ]] ||
                values+=("${word#"$command "}")
        done <<< "$known"
    fi
    if [[ -n $asked ]]; then
        while IFS= read -r word; do
            [[ $current == [\"\']* ]] || printf -v word %q "$word"
            values+=("$word")
        done < <(@PROGRAM@ completion --values "$asked" 2> /dev/null)
    fi
    if [[ -z $isvalue && $current == -* && $before != *' -- '* ]]; then
        values=("${options[@]}")
        files=
    elif [[ -z $isvalue ]] && ((at == COMP_CWORD)); then
        values+=("${commands[@]}")
    fi
    local begun=${current#[\"\']}
    for word in "${values[@]}"; do
        [[ ${word,,} != "${begun,,}"* ]] || COMPREPLY+=("$word")
    done
    [[ -n $files ]] || return 0
    # Beside names, which are quoted already, files are quoted here; else bash does it.
    [[ -n $asked ]] || compopt -o filenames 2> /dev/null
    while IFS= read -r word; do
        [[ -z $asked || $current == [\"\']* ]] || printf -v word %q "$word"
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
struct BashValues {
    std::vector<std::string> offered;
    bool areFiles = false;
    bool areNames = false;
    std::string asked;

    void Add(const NamedCommand& command, const ArgumentDefinition& argument) {
        const std::vector<std::string>& values = argument.Offered();
        offered.insert(offered.end(), values.begin(), values.end());
        areFiles = areFiles || argument.isFile;
        areNames = areNames || argument.namesCommand;
        if (argument.offersNow) asked = command.NameOf(argument);
    }
    std::string Text() const {
        std::string text;
        if (!offered.empty()) text += " values=" + List(offered);
        if (areFiles) text += " files=yes";
        if (areNames) text += " names=yes";
        if (!asked.empty()) text += " asked=" + ShellQuoted(asked);
        return text;
    }
};

// Once an option that takes a value is given, nothing but its value can come.
std::string OptionCase(const NamedCommand& command, const ArgumentDefinition& option) {
    BashValues values;
    values.Add(command, option);
    std::string pattern;
    for (const std::string& name : option.names) pattern += (pattern.empty() ? "" : " | ") + name;
    return "                " + pattern + ") isvalue=yes" + values.Text() + " ;;\n";
}

std::string Case(const NamedCommand& command) {
    std::vector<std::string> commands;
    for (const CommandDefinition& under : command.definition.commands) {
        commands.push_back(under.name);
    }
    std::vector<std::string> options;
    BashValues values;
    std::string cases;
    for (const ArgumentDefinition& argument : command.definition.arguments) {
        if (argument.kind == kPositionalArgument) {
            values.Add(command, argument);
            continue;
        }
        options.insert(options.end(), argument.names.begin(), argument.names.end());
        if (argument.kind == kOptionArgument) cases += OptionCase(command, argument);
    }
    return "        " + ShellQuoted(command.Joined(" ")) +
           ")\n            commands=" + List(commands) + "\n            options=" + List(options) +
           "\n            case $option in\n" + cases + "                *)" + values.Text() +
           " ;;\n            esac ;;\n";
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
