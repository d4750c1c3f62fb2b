#include <quillory/arguments/FoldedText.h>
#include <quillory/arguments/ManualPage.h>

#include <cctype>
#include <string_view>

namespace quillory {
namespace {

// Options and choices are not divided at the end of a line.
constexpr const char* kLeftAligned = ".nh\n.ad l\n";

// What troff would set as something else, and what has to be written for it.
std::string_view Escaped(char c) {
    switch (c) {
        case '\\':
            return "\\e";
        case '-':
            return "\\-";
        case '\'':
            return "\\(aq";
        case '`':
            return "\\(ga";
        case '^':
            return "\\(ha";
        case '~':
            return "\\(ti";
        default:
            return {};
    }
}

// Text for a line of its own, in which troff finds no request and no escape.
std::string Plain(std::string_view text) {
    std::string plain = text.starts_with('.') ? "\\&" : "";
    for (const char c : text) {
        const std::string_view escaped = Escaped(c);
        if (escaped.empty()) {
            plain += c;
        } else {
            plain += escaped;
        }
    }
    return plain;
}

std::string Bold(std::string_view text) {
    return "\\fB" + Plain(text) + "\\fR";
}

// A long list of choices may go on in another line after a bar.
std::string Italic(std::string_view text) {
    std::string value = "\\fI";
    for (const char c : Plain(text)) {
        value += c;
        if (c == '|') value += "\\:";
    }
    return value + "\\fR";
}

std::string Section(const std::string& title) {
    return ".SH " + title + "\n";
}

std::string Item(const std::string& term, const std::string& text) {
    return ".TP\n" + term + "\n" + text + "\n";
}

bool IsPositional(const ArgumentDefinition& argument) {
    return argument.kind == kPositionalArgument;
}

// quillory edit replace [OPTIONS] PLACE [FILE...]
std::string Synopsis(const NamedCommand& command) {
    std::string text = Bold(command.Joined(" ")) + " [" + Italic("OPTIONS") + "]";
    for (const ArgumentDefinition& argument : command.definition.arguments) {
        if (!IsPositional(argument)) continue;
        const std::string name = Italic(argument.names.front()) + (argument.isList ? "..." : "");
        text += argument.isRequired ? " " + name : " [" + name + "]";
    }
    if (command.definition.commands.empty()) return text + "\n";
    const std::string under = Italic("COMMAND");
    return text + (command.definition.needsCommand ? " " + under : " [" + under + "]") + "\n";
}

std::string Term(const ArgumentDefinition& argument) {
    if (IsPositional(argument)) {
        const std::string& name = argument.names.front();
        return Italic(name) + (argument.choices.empty() ? "" : " " + Italic(argument.value));
    }
    std::string term;
    for (const std::string& name : argument.names) {
        term += (term.empty() ? "" : ", ") + Bold(name);
    }
    return argument.value.empty() ? term : term + " " + Italic(argument.value);
}

std::string Meaning(const ArgumentDefinition& argument) {
    std::string text = Plain(argument.text) + ".";
    if (argument.isRequired) text += " Required.";
    std::string others;
    for (const std::string& other : argument.excludes) {
        others += (others.empty() ? " Not with " : " or ") + Bold(other);
    }
    return others.empty() ? text : text + others + ".";
}

std::string ArgumentItems(const CommandDefinition& command, bool arePositional) {
    std::string text;
    for (const ArgumentDefinition& argument : command.arguments) {
        if (IsPositional(argument) == arePositional) {
            text += Item(Term(argument), Meaning(argument));
        }
    }
    return text.empty() ? text : Section(arePositional ? "ARGUMENTS" : "OPTIONS") + text;
}

std::string CommandItems(const CommandDefinition& command) {
    if (command.commands.empty()) return {};
    std::string text = Section("COMMANDS");
    for (const CommandDefinition& under : command.commands) {
        text += Item(Bold(under.name), Plain(under.summary) + ".");
    }
    return text;
}

// Tables stay as they are.
std::string Details(const std::string& footer) {
    if (footer.empty()) return {};
    std::string text = Section("DETAILS");
    bool isTable = false;
    bool isFirst = true;
    for (const std::string& paragraph : Paragraphs(footer)) {
        if (paragraph.starts_with(' ') != isTable) {
            isTable = !isTable;
            text += isTable ? ".nf\n" : ".fi\n";
        } else if (!isTable && !isFirst) {
            text += ".br\n";
        }
        text += Plain(paragraph) + "\n";
        isFirst = false;
    }
    return isTable ? text + ".fi\n" : text;
}

std::string TermSections(const std::vector<TermList>& lists) {
    std::string text;
    for (const TermList& list : lists) {
        std::string title;
        for (const char c : list.title) {
            title += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
        text += Section(title);
        for (const auto& [term, meaning] : list.terms) {
            text += Item(Bold(term), Plain(meaning) + ".");
        }
    }
    return text;
}

std::string Reference(const std::string& page) {
    return Bold(page) + "(1)";
}

// The command above, and those under it.
std::string SeeAlso(const NamedCommand& command) {
    std::string text;
    if (command.names.size() > 1) {
        NamedCommand above = command;
        above.names.pop_back();
        text = Reference(ManualPageName(above));
    }
    for (const CommandDefinition& under : command.definition.commands) {
        text += (text.empty() ? "" : ",\n") + Reference(ManualPageName(command) + "-" + under.name);
    }
    return text.empty() ? text : Section("SEE ALSO") + text + "\n";
}

// The summary of a program begins with its name, which stands before it in any case.
std::string SummaryOf(const CommandDefinition& command) {
    const std::string name = command.name + ": ";
    return command.summary.substr(command.summary.starts_with(name) ? name.size() : 0);
}

}  // namespace

std::string ManualPageName(const NamedCommand& command) {
    return command.Joined("-");
}

std::string ManualPage(const NamedCommand& command, const std::string& version) {
    const std::string name = Plain(ManualPageName(command));
    return ".TH \"" + name + "\" 1 \"\" \"" + Plain(command.names.front() + " " + version) +
           "\"\n" + kLeftAligned + Section("NAME") + name + " \\- " +
           Plain(SummaryOf(command.definition)) + "\n" + Section("SYNOPSIS") + Synopsis(command) +
           ArgumentItems(command.definition, true) + ArgumentItems(command.definition, false) +
           CommandItems(command.definition) + Details(command.definition.footer) +
           TermSections(command.definition.lists) + SeeAlso(command);
}

}  // namespace quillory
