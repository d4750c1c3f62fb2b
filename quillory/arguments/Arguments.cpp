#include <quillory/arguments/Arguments.h>
#include <quillory/arguments/FoldedText.h>
#include <quillory/arguments/MeantName.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

constexpr const char* kHelp = "--help";
constexpr const char* kVersion = "--version";

bool ReadFlag(const std::string& text) {
    try {
        return CLI::detail::to_flag_value(text) > 0;
    } catch (const std::logic_error&) {
        throw UsageError("\"" + text + "\" is neither true nor false");
    }
}

// "-s,--long" is two names.
std::vector<std::string> Divided(std::string_view names) {
    std::vector<std::string> divided;
    for (;;) {
        const std::size_t comma = names.find(',');
        divided.emplace_back(names.substr(0, comma));
        if (comma == names.npos) return divided;
        names.remove_prefix(comma + 1);
    }
}

std::string MissingValue(const std::string& option) {
    return option + ": its value is missing";
}

std::string InQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

// "--option=" of a variable that is empty would take the next word, perhaps a file's name, for its
// value.
std::string FaultOfEmptyValue(const std::vector<std::string>& words) {
    const auto end = std::ranges::find(words, "--");
    const auto empty = std::find_if(words.begin(), end, [](const std::string& word) {
        return word.starts_with("--") && word.find('=') == word.size() - 1;
    });
    return empty == end ? std::string() : MissingValue(empty->substr(0, empty->size() - 1));
}

constexpr std::size_t kTextColumn = 30;  // where what stands beside a name begins in help

std::string FoldedBeside(const std::string& text, std::size_t columns) {
    return Folded(text, std::max(columns, 2 * kTextColumn) - kTextColumn);
}

// Help in lines of so many columns, with the words of the manual pages.
class HelpFormatter : public CLI::Formatter {
public:
    explicit HelpFormatter(std::size_t columns) : columns_(columns) {
        column_width(kTextColumn);
        label("Positionals", "Arguments");
        label("SUBCOMMAND", "COMMAND");
        label("REQUIRED", "(required)");
        label("Excludes", "not with");
    }

    std::string make_option_desc(const CLI::Option* option) const override {
        return Text(option->get_description());
    }
    std::string make_subcommand(const CLI::App* command) const override {
        std::ostringstream help;
        CLI::detail::format_help(help, command->get_name(), Text(command->get_description()),
                                 kTextColumn);
        return help.str();
    }
    std::string make_footer(const CLI::App* app) const override {
        std::string footer;
        for (const std::string& paragraph : Paragraphs(app->get_footer())) {
            const bool isTable = paragraph.starts_with(' ');
            footer += (isTable ? paragraph : Folded(paragraph, columns_)) + "\n";
        }
        return footer;
    }

private:
    std::string Text(const std::string& text) const { return FoldedBeside(text, columns_); }

    std::size_t columns_;
};

// Terms and what they mean, as --help shows options.
std::string TextOf(const TermList& list, std::size_t columns) {
    std::ostringstream text;
    text << list.title << ":\n";
    for (const auto& [term, meaning] : list.terms) {
        CLI::detail::format_help(text, term, FoldedBeside(meaning, columns), kTextColumn);
    }
    return text.str();
}

// What the name of a positional argument says already is not said again.
std::string ShownValue(const ArgumentDefinition& definition) {
    const bool isNamed = definition.kind == kPositionalArgument && definition.choices.empty();
    return isNamed ? std::string() : definition.value;
}

void DeclareArgument(const Argument& argument, CLI::App& app) {
    const ArgumentDefinition& definition = argument.Definition();
    const std::string names = CLI::detail::join(definition.names, ",");
    if (definition.kind == kFlagArgument) {
        app.add_flag(names, definition.text);
    } else {
        // How often an option may stand is looked at later.
        CLI::Option* option = app.add_option(names, CLI::callback_t{}, definition.text)
                                  ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
                                  ->type_name(ShownValue(definition))
                                  ->required(definition.isRequired);
        // A positional list takes what comes. It is not set to allow extra arguments: it would
        // then take a word in brackets for several.
        constexpr int kAll = CLI::detail::expected_max_vector_size;
        const bool takesAll = definition.isList && definition.kind == kPositionalArgument;
        if (takesAll) option->expected(kAll, kAll);
    }
    CLI::Option* option = app.get_option(definition.names.back());
    for (const std::string& other : definition.excludes) option->excludes(app.get_option(other));
}

}  // namespace

// Has the words of a command line told apart, and puts the values where they belong.
class ArgumentParser {
public:
    ArgumentParser(Arguments& program, const std::vector<std::string>& words,
                   std::size_t helpColumns)
        : words_(words), helpColumns_(helpColumns), app_(program.summary_, program.name_) {
        app_.formatter(std::make_shared<HelpFormatter>(helpColumns));
        Declare(program, app_);
        called_.push_back({program, app_});
    }

    Call Parse() {
        Call call;
        const std::string fault = TellApart(words_);
        for (const Step& step : called_) {
            call.command += (call.command.empty() ? "" : " ") + step.command.name_;
        }
        if (IsGiven(kHelp)) {
            call.text = app_.help();
            for (const TermList& list : called_.back().command.lists_) {
                if (!call.text.ends_with("\n\n")) call.text += "\n";
                call.text += TextOf(list, helpColumns_);
            }
        } else if (IsGiven(kVersion)) {
            const Arguments& program = called_.front().command;
            call.text = program.name_ + " " + program.version_ + "\n";
        } else {
            call.error = FirstOf({FaultOfEmptyValue(words_), FaultOfExtraWords(), FaultOfPlace(),
                                  fault, FaultOfCommandAsFile(), FaultOfValues()});
            if (call.error.empty()) call.run = called_.back().command.run_;
        }
        return call;
    }

private:
    // A command of those that were called, and how CLI11 knows it.
    struct Step {
        Arguments& command;
        CLI::App& app;
    };

    // A command that no word names can't be called: its arguments need not be known.
    void Declare(Arguments& command, CLI::App& app) {
        command.Declare();
        app.set_help_flag();  // it is among the arguments
        app.allow_extras();
        app.footer(command.footer_);
        for (const Argument& argument : command.arguments_) DeclareArgument(argument, app);
        for (Arguments& under : command.commands_) {
            CLI::App& known = *app.add_subcommand(under.name_, under.summary_)->group("Commands");
            if (std::ranges::find(words_, under.name_) != words_.end()) Declare(under, known);
        }
        if (!command.commands_.empty()) app.require_subcommand(command.run_ ? 0 : 1, 1);
    }

    static std::string FirstOf(const std::vector<std::string>& faults) {
        const auto fault = std::ranges::find_if_not(faults, &std::string::empty);
        return fault == faults.end() ? std::string() : *fault;
    }

    // Finds out which commands are called. Result: what CLI11 found wrong, or an empty text.
    std::string TellApart(std::vector<std::string> words) {
        std::string fault;
        std::ranges::reverse(words);
        try {
            app_.parse(std::move(words));
        } catch (const CLI::ArgumentMismatch& mismatch) {
            const std::string text = mismatch.what();
            fault = MissingValue(text.substr(0, text.find(':')));
        } catch (const CLI::ParseError& error) {
            fault = error.what();
        }
        for (CLI::App* app = &app_; !app->get_subcommands().empty();) {
            app = app->get_subcommands().front();
            auto& commands = called_.back().command.commands_;
            const auto command = std::ranges::find(commands, app->get_name(), &Arguments::name_);
            called_.push_back({*command, *app});
        }
        return fault;
    }

    bool IsGiven(const std::string& flag) const {
        return std::ranges::any_of(called_, [&flag](const Step& step) {
            const CLI::Option* option = step.app.get_option_no_throw(flag);
            return option != nullptr && option->count() > 0;
        });
    }

    static std::string FaultOfExtraWord(const Step& step, const std::string& word) {
        if (word.size() > 1 && word.starts_with('-')) {
            const std::string option = word.substr(0, word.find('='));
            return "there is no option " + option + MeantNames(option, OptionsOf(step.command));
        }
        const bool needsCommand = step.app.get_require_subcommand_min() > 0;
        return needsCommand ? "there is no command " + InQuotes(word) +
                                  MeantNames(word, CommandsUnder(step.command))
                            : InQuotes(word) + " is one argument too many";
    }

    static std::vector<std::string> OptionsOf(const Arguments& command) {
        std::vector<std::string> names;
        for (const Argument& argument : command.arguments_) {
            const ArgumentDefinition& definition = argument.Definition();
            if (definition.kind == kPositionalArgument) continue;
            names.insert(names.end(), definition.names.begin(), definition.names.end());
        }
        return names;
    }

    static std::vector<std::string> CommandsUnder(const Arguments& command) {
        std::vector<std::string> names;
        for (const Arguments& under : command.commands_) names.push_back(under.name_);
        return names;
    }

    // Where a command or files may come, a mistyped command stands in the place of a file.
    std::string FaultOfCommandAsFile() const {
        const Step& step = called_.back();
        if (step.command.commands_.empty()) return {};
        for (const Argument& argument : step.command.arguments_) {
            const ArgumentDefinition& definition = argument.Definition();
            if (definition.kind != kPositionalArgument || !definition.isFile) continue;
            const auto& values = step.app.get_option(definition.names.back())->results();
            if (values.empty() || values.front() == "-") return {};
            std::error_code error;
            if (std::filesystem::exists(values.front(), error)) return {};
            const std::string meant = MeantNames(values.front(), CommandsUnder(step.command));
            if (meant.empty()) return {};
            return "there is no file or command " + InQuotes(values.front()) + meant;
        }
        return {};
    }

    std::string FaultOfExtraWords() const {
        for (std::size_t at = 0; at < called_.size(); ++at) {
            for (const std::string& word : called_[at].app.remaining()) {
                if (word == "--") continue;
                if (at + 1 == called_.size()) return FaultOfExtraWord(called_[at], word);
                return word + " can't stand before " + called_[at + 1].command.name_;
            }
        }
        if (called_.back().app.get_require_subcommand_min() > 0) return "a command is missing";
        return {};
    }

    // What is said of one command has no meaning for another one under it.
    std::string FaultOfPlace() const {
        for (std::size_t at = 0; at + 1 < called_.size(); ++at) {
            const Step& step = called_[at];
            const auto isGiven = [&step](const Argument& argument) {
                return step.app.count(argument.Definition().names.back()) > 0;
            };
            if (std::ranges::any_of(step.command.arguments_, isGiven)) {
                return "nothing may stand between " + step.command.name_ + " and " +
                       called_[at + 1].command.name_;
            }
        }
        return {};
    }

    std::string FaultOfValues() {
        const Step& step = called_.back();
        for (Argument& argument : step.command.arguments_) {
            const ArgumentDefinition& definition = argument.definition_;
            const std::string& name = definition.names.back();
            const auto& values = step.app.get_option(name)->results();
            argument.count_ = values.size();
            const bool isOnce = definition.kind != kFlagArgument && !definition.isList;
            if (isOnce && values.size() > 1) return name + ": it may be given only once";
            const bool isEmpty = std::ranges::count(values, "") > 0;
            if (isEmpty && definition.isFile) return name + ": the name of a file is empty";
            if (isEmpty && definition.isNeverEmpty) return MissingValue(name);
            try {
                for (const std::string& value : values) argument.take_(value, definition);
            } catch (const UsageError& error) {
                return name + ": " + error.what();
            }
        }
        return {};
    }

    const std::vector<std::string>& words_;
    std::size_t helpColumns_;
    CLI::App app_;
    std::vector<Step> called_;
};

Argument& Argument::Required() {
    definition_.isRequired = true;
    return *this;
}

Argument& Argument::File() {
    definition_.isFile = true;
    if (definition_.value == ArgumentReader<std::string>::Shown()) definition_.value = "FILE";
    return *this;
}

Argument& Argument::NeverEmpty() {
    definition_.isNeverEmpty = true;
    return *this;
}

Argument& Argument::Shown(std::string value) {
    definition_.value = std::move(value);
    return *this;
}

Argument& Argument::NamesCommand() {
    definition_.namesCommand = true;
    return *this;
}

Argument& Argument::Offers(std::vector<std::string> values) {
    definition_.offers = std::move(values);
    return *this;
}

Argument& Argument::OffersNow(std::function<std::vector<std::string>()> values) {
    definition_.offersNow = std::move(values);
    return *this;
}

Argument& Argument::Excludes(std::string option) {
    definition_.excludes.push_back(std::move(option));
    return *this;
}

Argument& Argument::Range(std::int64_t lowest, std::int64_t highest) {
    definition_.range = {lowest, highest};
    return *this;
}

Arguments::Arguments(std::string name, std::string summary, std::string version)
    : name_(std::move(name)), summary_(std::move(summary)), version_(std::move(version)) {
    const auto noValue = [](const std::string&, const ArgumentDefinition&) {};
    Add(Define(kFlagArgument, std::string("-h,") + kHelp, "Print this help message and exit"),
        noValue);
    if (version_.empty()) return;
    Add(Define(kFlagArgument, kVersion, "Display program version information and exit"), noValue);
}

ArgumentDefinition Arguments::Define(ArgumentKind kind, const std::string& names,
                                     const std::string& text) {
    ArgumentDefinition definition;
    definition.kind = kind;
    definition.names = Divided(names);
    definition.text = text;
    return definition;
}

Argument& Arguments::Add(ArgumentDefinition definition, Argument::Take take) {
    return arguments_.emplace_back(std::move(definition), std::move(take));
}

Argument& Arguments::Flag(const std::string& names, bool& target, const std::string& text) {
    return Add(Define(kFlagArgument, names, text),
               [&target](const std::string& value, const ArgumentDefinition&) {
                   target = ReadFlag(value);
               });
}

void Arguments::Command(const std::string& name, const std::string& summary, Declaration declare) {
    const std::size_t space = name.find(' ');
    if (space == name.npos) {
        commands_.emplace_back(name, summary).declare_ = std::move(declare);
        return;
    }
    const auto above = std::ranges::find(commands_, name.substr(0, space), &Arguments::name_);
    if (above == commands_.end()) throw std::invalid_argument(name + ": under no command");
    above->Command(name.substr(space + 1), summary, std::move(declare));
}

void Arguments::Declare() {
    if (declare_) std::exchange(declare_, {})(*this);
}

CommandDefinition Arguments::Definition() {
    Declare();
    CommandDefinition definition{name_, summary_, footer_, lists_, {}, {}, false};
    for (const Argument& argument : arguments_) {
        definition.arguments.push_back(argument.Definition());
    }
    for (Arguments& command : commands_) {
        definition.commands.push_back(command.Definition());
    }
    definition.needsCommand = !commands_.empty() && !run_;
    return definition;
}

Call Arguments::Parse(const std::vector<std::string>& words, std::size_t helpColumns) {
    return ArgumentParser(*this, words, helpColumns).Parse();
}

}  // namespace quillory
