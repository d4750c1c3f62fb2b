#pragma once

#include <quillory/arguments/ArgumentDefinition.h>
#include <quillory/arguments/ArgumentValue.h>

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// The names that an argument takes, and what each stands for.
template <class Value>
using Choices = std::vector<std::pair<std::string, Value>>;

// An argument in a command's declaration.
class Argument {
public:
    using Take = std::function<void(const std::string& value, const ArgumentDefinition& of)>;

    Argument(ArgumentDefinition definition, Take take)
        : definition_(std::move(definition)), take_(std::move(take)) {}

    Argument& Required();
    // It names a file. An empty name, as of a variable of the shell that is not set, is wrong
    // usage.
    Argument& File();
    // An empty value, which would ask for all or for a default, is wrong usage, too.
    Argument& NeverEmpty();
    // What stands for its value in help.
    Argument& Shown(std::string value);
    // It is a list of words that name a command of the program, such as "records add".
    Argument& NamesCommand();
    // Values that shells offer, though it takes any others, too.
    Argument& Offers(std::vector<std::string> values);
    // Values of which only a run of the program knows, such as names that a person has given.
    Argument& OffersNow(std::function<std::vector<std::string>()> values);
    // An option that can't be given beside this one; it is declared before it.
    Argument& Excludes(std::string option);
    // The numbers that it takes, of all that its type holds; both ends are among them.
    Argument& Range(std::int64_t lowest, std::int64_t highest);

    const ArgumentDefinition& Definition() const { return definition_; }
    // How often the command line has it.
    std::size_t Count() const { return count_; }

private:
    friend class ArgumentParser;

    ArgumentDefinition definition_;
    Take take_;
    std::size_t count_ = 0;
};

inline constexpr int kWell = 0;  // the status of a program that has done its work

// What a command line comes to: a text that it asks for, something that is wrong with it, or a
// command to be run. The other two are empty.
struct Call {
    std::string command;  // the command that was called, with those above it: "quillory records"
    std::string text;     // help or the version, with the end of its last line
    std::string error;
    std::function<int()> run;  // result: the status that the program ends with
};

// The arguments of a program or of a command. Each is declared with the variable that takes its
// value, which keeps its default where the argument is not given:
//
//     void DeclareSplit(Arguments& command) {
//         SplitOptions& options = command.Runs(RunSplit);
//         command.Positional("FILE", options.files, "Files of records").Required();
//         command.Flag("-q,--quiet", options.quiet, "No summary");
//         command.Option("--records", options.records, "At most so many a file").Range(1, 9999);
//         command.Choice("--to", options.form, {{"marc", kFormMarc}, {"mrk", kFormMrk}}, "Form");
//     }
//
// A variable of an option or a positional argument is a std::string or an integer, a std::optional
// of one, or a std::vector of them, to which every value that is given is added. A vector of pairs
// takes KEY=VALUE. Names of options are "--long" or "-s,--long".
class Arguments {
public:
    // With --help, and with --version if there is one to tell.
    Arguments(std::string name, std::string summary, std::string version = {});
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    // What the command does. The options live as long as the arguments.
    template <class Options, class Status>
    Options& Runs(Status (*run)(const Options&)) {
        auto options = std::make_shared<Options>();
        run_ = [options, run] { return static_cast<int>(run(*options)); };
        return *options;
    }

    Argument& Flag(const std::string& names, bool& target, const std::string& text);

    template <class Target>
    Argument& Option(const std::string& names, Target& target, const std::string& text) {
        return Add(kOptionArgument, names, target, text);
    }

    template <class Target>
    Argument& Positional(const std::string& name, Target& target, const std::string& text) {
        return Add(kPositionalArgument, name, target, text);
    }

    // An option of a key and a value; `shown` is what stands for both.
    template <class Target>
    Argument& KeyValue(const std::string& names, Target& target, const std::string& shown,
                       const std::string& text) {
        return Add(kOptionArgument, names, target, text).Shown(shown);
    }

    // An option, or a positional argument if its name has no dash, that takes one of a few names in
    // any case and nothing else.
    template <class Target>
    Argument& Choice(const std::string& names, Target& target,
                     const Choices<typename ValueSlot<Target>::Value>& choices,
                     const std::string& text) {
        ArgumentDefinition definition =
            Define(names.starts_with('-') ? kOptionArgument : kPositionalArgument, names, text);
        definition.isList = ValueSlot<Target>::kIsList;
        for (const auto& [name, value] : choices) {
            definition.value += (definition.value.empty() ? "" : "|") + name;
            definition.choices.push_back(name);
        }
        return Add(std::move(definition),
                   [&target, choices](const std::string& given, const ArgumentDefinition& of) {
                       const std::size_t chosen = ReadChoice(given, of.choices);
                       ValueSlot<Target>::Put(target, choices[chosen].second);
                   });
    }

    using Declaration = std::function<void(Arguments& command)>;

    // A command under this one, whose arguments are declared once they are needed. A name such as
    // "records list" is looked for under that of its first word, which is declared before it.
    void Command(const std::string& name, const std::string& summary, Declaration declare = {});
    // The text that --help shows after the arguments. Lines that begin with a blank, as those of a
    // table, stay as they are; others are set anew, up to one that ends with a sentence.
    void Footer(std::string text) { footer_ = std::move(text); }

    // A list that --help shows after the footer. The meanings have no full stop at their ends.
    void List(TermList list) { lists_.push_back(std::move(list)); }

    const std::string& Name() const { return name_; }
    const std::string& Version() const { return version_; }
    // All of it as plain data, in the order of declaration.
    CommandDefinition Definition();

    // Puts the values of a command line, which is without the name of the program, into the
    // variables. Help comes in lines of so many columns. To be called once.
    Call Parse(const std::vector<std::string>& words, std::size_t helpColumns = 80);

private:
    friend class ArgumentParser;

    static ArgumentDefinition Define(ArgumentKind kind, const std::string& names,
                                     const std::string& text);
    Argument& Add(ArgumentDefinition definition, Argument::Take take);
    void Declare();

    template <class Target>
    Argument& Add(ArgumentKind kind, const std::string& names, Target& target,
                  const std::string& text) {
        using Slot = ValueSlot<Target>;
        using Reader = ArgumentReader<typename Slot::Value>;
        ArgumentDefinition definition = Define(kind, names, text);
        definition.value = Reader::Shown();
        definition.range = Reader::Range();
        definition.isList = Slot::kIsList;
        return Add(std::move(definition),
                   [&target](const std::string& given, const ArgumentDefinition& of) {
                       Slot::Put(target, Reader::Read(given, of));
                   });
    }

    std::string name_;
    std::string summary_;
    std::string version_;
    std::string footer_;
    std::vector<TermList> lists_;
    Declaration declare_;  // empty once it is done
    std::function<int()> run_;
    std::list<Argument> arguments_;  // that of its own, whose addresses stay
    std::list<Arguments> commands_;
};

}  // namespace quillory
