#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

enum ArgumentKind { kFlagArgument, kOptionArgument, kPositionalArgument };

// The numbers that an argument takes, both ends with them.
struct NumberRange {
    std::int64_t lowest;
    std::int64_t highest;
};

// What there is to know of an argument of a command: what --help, a manual page or the completion
// of a shell tells of it.
struct ArgumentDefinition {
    ArgumentKind kind = kFlagArgument;
    std::vector<std::string> names;    // "-o" and "--output", or "FILE" for a positional argument
    std::string value;                 // what stands for its value, as "TEXT"; empty for a flag
    std::string text;                  // what it is for
    std::vector<std::string> choices;  // the only values there are, in any case; empty for any
    std::vector<std::string> offers;   // values that shells offer where there are no choices
    std::function<std::vector<std::string>()> offersNow;  // the same, as they are by then; or empty
    std::optional<NumberRange> range;                     // of an argument that takes a number
    bool isRequired = false;
    bool isFile = false;        // names a file, and is never empty
    bool namesCommand = false;  // its words are those of a command
    bool isNeverEmpty = false;  // an empty value would mean something else than is asked for
    bool isList = false;        // may be given several times
    std::vector<std::string> excludes;  // options that don't go with it

    // What the completion of a shell proposes as its value.
    const std::vector<std::string>& Offered() const { return choices.empty() ? offers : choices; }
};

// What else is to be known of a command, such as its exit statuses: a list that --help shows at its
// end, and a section of the manual page.
struct TermList {
    std::string title;                                       // "Exit status"
    std::vector<std::pair<std::string, std::string>> terms;  // each with what it means
};

struct CommandDefinition {
    std::string name;
    std::string summary;
    std::string footer;  // shown by --help after the arguments; may be empty
    std::vector<TermList> lists;
    std::vector<ArgumentDefinition> arguments;
    std::vector<CommandDefinition> commands;  // those under it
    bool needsCommand = false;                // does nothing without one of them
};

}  // namespace quillory
