#include <quillory/arguments/Arguments.h>
#include <quillory/arguments/FoldedText.h>
#include <quillory/arguments/MeantName.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <utility>
#include <vector>

namespace quillory {
namespace {

enum Fruit { kApple, kPear };

struct PickOptions {
    bool quiet = false;
    std::string output = "-";
    std::optional<std::string> title;
    unsigned rows = 7;
    std::int64_t after = -1;
    std::optional<std::uint8_t> level;
    Fruit fruit = kApple;
    std::optional<Fruit> other;
    std::vector<std::string> sets;
    std::vector<std::pair<std::string, int>> keys;
    std::string basket;
    std::vector<std::string> files;
};

struct CountOptions {
    std::vector<std::int64_t> ids;
};

std::string ran;  // what the command that ran last was told

// What differs from the defaults.
int Pick(const PickOptions& options) {
    const PickOptions standard;
    std::ostringstream text;
    if (options.quiet) text << " quiet";
    if (options.output != standard.output) text << " output=" << options.output;
    if (options.title) text << " title=" << *options.title;
    if (options.rows != standard.rows) text << " rows=" << options.rows;
    if (options.after != standard.after) text << " after=" << options.after;
    if (options.level) text << " level=" << int{*options.level};
    if (options.fruit != standard.fruit) text << " fruit=" << options.fruit;
    if (options.other) text << " other=" << *options.other;
    for (const std::string& set : options.sets) text << " set=" << set;
    for (const auto& [key, value] : options.keys) text << " " << key << ":" << value;
    text << " " << options.basket;
    for (const std::string& file : options.files) text << "," << file;
    ran = "pick" + text.str();
    return 1;
}

int Count(const CountOptions& options) {
    ran = "count";
    for (const std::int64_t id : options.ids) ran += " " + std::to_string(id);
    return 0;
}

struct ListOptions {
    bool all = false;
};

int List(const ListOptions& options) {
    ran = options.all ? "list all" : "list";
    return 0;
}

const Choices<Fruit> kFruits{{"apple", kApple}, {"pear", kPear}};

void DeclarePick(Arguments& command) {
    PickOptions& options = command.Runs(Pick);
    command.Positional("BASKET", options.basket, "Where they lie").Required();
    command.Positional("FILE", options.files, "What tells of them");
    command.Flag("-q,--quiet", options.quiet, "No word");
    command.Option("-o,--output", options.output, "Where they go");
    command.Option("--title", options.title, "What they are called");
    command.Option("--rows", options.rows, "So many");
    command.Option("--after", options.after, "Behind this");
    command.Option("--level", options.level, "How high").Range(0, 3);
    command.Choice("--fruit", options.fruit, kFruits, "Which");
    command.Choice("--other", options.other, kFruits, "Which other").Excludes("--output");
    command.Option("-s,--set", options.sets, "What is set");
    command.KeyValue("--key", options.keys, "KEY=0|1|2", "What counts").Range(0, 2);
    command.Footer("All of it.");
}

void DeclareCount(Arguments& command) {
    CountOptions& options = command.Runs(Count);
    command.Positional("ID", options.ids, "Of these");
}

void DeclareList(Arguments& command) {
    ListOptions& options = command.Runs(List);
    command.Flag("--all", options.all, "All of them");
}

// "pick"; "store" does nothing of itself, "store list" may be followed by a command.
void DeclareProgram(Arguments& program) {
    program.Command("pick", "Pick fruit", DeclarePick);
    program.Command("store", "What is kept");
    program.Command("store count", "Count what is kept", DeclareCount);
    program.Command("store list", "List what is kept", DeclareList);
    program.Command("store list count", "Count the lists", DeclareCount);
}

// What a command line does: what is run and its status, the first line of a text, or the command
// and what is wrong.
std::string Outcome(const std::vector<std::string>& words) {
    Arguments program("tool", "tool: what it is", "1.5");
    DeclareProgram(program);
    const Call call = program.Parse(words);
    EXPECT_EQ(int{call.text.empty()} + int{call.error.empty()} + int{!call.run}, 2);
    if (!call.error.empty()) return call.command + ": " + call.error;
    if (!call.text.empty()) return call.command + "> " + call.text.substr(0, call.text.find('\n'));
    const int status = call.run();
    return ran + " -> " + std::to_string(status);
}

struct Row {
    std::vector<std::string> words;
    std::string outcome;
};

void Check(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(Outcome(row.words), row.outcome) << testing::PrintToString(row.words);
    }
}

TEST(Arguments, ValuesGoWhereTheyBelong) {
    Check({
        {{"pick", "b"}, "pick b -> 1"},
        {{"pick", "b", "x", "y", "-q"}, "pick quiet b,x,y -> 1"},
        {{"pick", "-q", "--quiet", "b"}, "pick quiet b -> 1"},
        {{"pick", "--quiet=false", "b"}, "pick b -> 1"},
        {{"pick", "b", "-qo", "x"}, "pick quiet output=x b -> 1"},
        {{"pick", "b", "--output=x=y"}, "pick output=x=y b -> 1"},
        {{"pick", "b", "-o", "--title"}, "pick output=--title b -> 1"},
        {{"pick", "--title", "", "b"}, "pick title= b -> 1"},
        {{"pick", "b", "--rows", "010", "--after=-5", "--level", "3"},
         "pick rows=10 after=-5 level=3 b -> 1"},
        {{"pick", "b", "--rows", "4294967295", "--after", "9223372036854775807"},
         "pick rows=4294967295 after=9223372036854775807 b -> 1"},
        {{"pick", "b", "--fruit", "PEAR", "--other", "apple"}, "pick fruit=1 other=0 b -> 1"},
        {{"pick", "-s", "x", "b", "-s", "[y,z]", "f"}, "pick set=x set=[y,z] b,f -> 1"},
        {{"pick", "--key", "a=1", "--key=b=0", "b"}, "pick a:1 b:0 b -> 1"},
        {{"pick", "b", "[x,y]", "{}", ""}, "pick b,[x,y],{}, -> 1"},
        {{"pick", "-q", "b", "--", "-q", "--rows="}, "pick quiet b,-q,--rows= -> 1"},
        {{"pick", "b", "x", "--", "-y"}, "pick b,x,-y -> 1"},
        {{"pick", "pick", "store"}, "pick pick,store -> 1"},
        {{"store", "count", "3", "1"}, "count 3 1 -> 0"},
        {{"store", "list", "--all"}, "list all -> 0"},
        {{"store", "list", "count", "2"}, "count 2 -> 0"},
    });
}

TEST(Arguments, WhatIsWrongIsSaid) {
    Check({
        {{}, "tool: a command is missing"},
        {{"store"}, "tool store: a command is missing"},
        {{"fruit", "b"}, "tool: there is no command \"fruit\""},
        {{"store", "pick"}, "tool store: there is no command \"pick\""},
        {{"--quiet", "pick", "b"}, "tool pick: --quiet can't stand before pick"},
        {{"pick", "b", "--colour=red"}, "tool pick: there is no option --colour"},
        {{"pick", "b", "-x"}, "tool pick: there is no option -x"},
        {{"store", "list", "x"}, "tool store list: \"x\" is one argument too many"},
        {{"store", "list", "--all", "count"},
         "tool store list count: nothing may stand between list and count"},
        {{"pick"}, "tool pick: BASKET is required"},
        {{"pick", "b", "--title"}, "tool pick: --title: its value is missing"},
        {{"pick", "--output=", "b"}, "tool pick: --output: its value is missing"},
        {{"pick", "b", "-o", "x", "--output", "y"},
         "tool pick: --output: it may be given only once"},
        {{"pick", "b", "--other", "pear", "-o", "x"}, "tool pick: --output excludes --other"},
        {{"pick", "b", "--quiet=maybe"}, "tool pick: --quiet: \"maybe\" is neither true nor false"},
        {{"pick", "b", "--fruit", "plum"},
         "tool pick: --fruit: \"plum\" is not one of apple, pear"},
        {{"pick", "b", "--fruit", ""}, "tool pick: --fruit: \"\" is not one of apple, pear"},
        {{"pick", "b", "--rows", ""},
         "tool pick: --rows: \"\" is not a number from 0 to 4294967295"},
        {{"pick", "b", "--rows", "4294967296"},
         "tool pick: --rows: \"4294967296\" is not a number from 0 to 4294967295"},
        {{"pick", "b", "--level", "4"}, "tool pick: --level: \"4\" is not a number from 0 to 3"},
        {{"pick", "b", "--level", "-1"}, "tool pick: --level: \"-1\" is not a number from 0 to 3"},
        {{"pick", "b", "--after", "1x"}, "tool pick: --after: \"1x\" is not a number"},
        {{"pick", "b", "--after", "0x1"}, "tool pick: --after: \"0x1\" is not a number"},
        {{"pick", "b", "--after", "9223372036854775808"},
         "tool pick: --after: \"9223372036854775808\" is not a number up to 9223372036854775807"},
        {{"store", "count", "1", ""}, "tool store count: ID: \"\" is not a number"},
        {{"pick", "b", "--key", "a"}, "tool pick: --key: a is not KEY=0|1|2"},
        {{"pick", "b", "--key", "a=3"}, "tool pick: --key: a=3 is not KEY=0|1|2"},
        {{"pick", "b", "--key", "=1"}, "tool pick: --key: =1 is not KEY=0|1|2"},
    });
}

TEST(Arguments, WhatIsMeantIsAsked) {
    Check({
        {{"pik", "b"}, "tool: there is no command \"pik\"; did you mean pick?"},
        {{"Pick", "b"}, "tool: there is no command \"Pick\"; did you mean pick?"},
        {{"store", "conut"}, "tool store: there is no command \"conut\"; did you mean count?"},
        {{"pick", "b", "--quite"}, "tool pick: there is no option --quite; did you mean --quiet?"},
        {{"pick", "b", "--titel=x"},
         "tool pick: there is no option --titel; did you mean --title?"},
        {{"pick", "b", "-title"}, "tool pick: there is no option -title; did you mean --title?"},
        {{"pick", "b", "--ro"}, "tool pick: there is no option --ro; did you mean --rows?"},
        {{"pick", "b", "--t"}, "tool pick: there is no option --t"},
    });
    EXPECT_EQ(MeantNames("--set", {"--set-a", "-s", "--reset", "--offset", "--unset", "--sett"}),
              "; did you mean --set-a or --reset or --offset?");
}

// The words before files may name a command.
TEST(Arguments, FileThatWasToBeACommand) {
    struct Files {
        std::vector<std::string> names;
    };
    const auto outcome = [](const std::string& file, const std::string& command = "list") {
        Arguments program("tool", "tool: what it is");
        Files& files = program.Runs(+[](const Files&) { return 0; });
        program.Positional("FILE", files.names, "Files").File();
        program.Command(command, "List them", DeclareList);
        return program.Parse({file}).error;
    };
    EXPECT_EQ(outcome("lsit"), "there is no file or command \"lsit\"; did you mean list?");
    EXPECT_EQ(outcome("nothing.mrc"), "");
    EXPECT_EQ(outcome("-"), "");
    const TemporaryFile there;
    EXPECT_EQ(outcome(there.Path(), there.Path() + "s"), "");
    EXPECT_NE(outcome(there.Path() + "r", there.Path() + "s"), "");
}

TEST(Arguments, HelpComesBeforeWhatIsWrong) {
    Check({
        {{"--help"}, "tool> tool: what it is"},
        {{"--version"}, "tool> tool 1.5"},
        {{"nothing", "-h"}, "tool> tool: what it is"},
        {{"pick", "--help"}, "tool pick> Pick fruit"},
        {{"pick", "-h", "--rows=", "--fruit", "plum", "-x", "--title"}, "tool pick> Pick fruit"},
        {{"store", "--help", "list"}, "tool store list> List what is kept"},
        {{"pick", "--version"}, "tool pick: there is no option --version"},
    });
}

TEST(Arguments, HelpTellsWhatIsDeclared) {
    Arguments program("tool", "tool: what it is");
    DeclareProgram(program);
    const std::string help = program.Parse({"pick", "--help"}).text;
    for (const std::string part :
         {"Usage: tool pick [OPTIONS] BASKET [FILE...]\n", "  BASKET (required) ", "  FILE ... ",
          "  -h,--help ", "  -q,--quiet ", " No word\n", "  --rows NUMBER ", "  --after NUMBER ",
          "  --fruit apple|pear ", "  --key KEY=0|1|2 ", "not with: --output", "\nAll of it.\n"}) {
        EXPECT_NE(help.find(part), help.npos) << part << help;
    }
}

TEST(Arguments, ListsStandAtTheEndOfHelp) {
    Arguments program("tool", "tool: what it is");
    program.Footer("All of it.");
    program.List({"Exit status", {{"0", "Well"}, {"1", "Not so well"}}});
    program.List({"Environment", {{"TOOL_HOME", "Where it is"}}});
    const std::string text = program.Parse({"--help"}).text;
    const std::string end =
        "\nAll of it.\n"
        "\nExit status:\n  0                           Well\n"
        "  1                           Not so well\n"
        "\nEnvironment:\n  TOOL_HOME                   Where it is\n";
    EXPECT_TRUE(text.ends_with(end)) << text;
}

TEST(Arguments, HelpIsFolded) {
    EXPECT_EQ(Folded("one two three", 7), "one two\nthree");
    EXPECT_EQ(Folded("one muchlonger two", 5), "one\nmuchlonger\ntwo");
    EXPECT_EQ(Folded("", 5), "");
    EXPECT_EQ(Paragraphs("One\ntwo.\nThree\n  a  1\n  b  2\nfour\n\nfive."),
              (std::vector<std::string>{"One two.", "Three", "  a  1", "  b  2", "four five."}));

    Arguments program("tool", "tool: what it is");
    DeclareProgram(program);
    std::istringstream help(program.Parse({"pick", "--help"}, 60).text);
    for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 60U) << line;
}

TEST(Arguments, DefinitionsArePlainData) {
    Arguments program("tool", "tool: what it is", "1.5");
    DeclareProgram(program);
    const CommandDefinition tool = program.Definition();
    ASSERT_EQ(tool.arguments.size(), 2U);  // --help and --version
    ASSERT_EQ(tool.commands.size(), 2U);
    const CommandDefinition& pick = tool.commands[0];
    const CommandDefinition& store = tool.commands[1];
    EXPECT_EQ(pick.summary + "/" + pick.footer, "Pick fruit/All of it.");
    EXPECT_TRUE(tool.needsCommand && store.needsCommand && !pick.needsCommand);
    ASSERT_EQ(store.commands.size(), 2U);
    EXPECT_FALSE(store.commands[1].needsCommand);
    EXPECT_EQ(store.commands[1].commands.at(0).name, "count");

    std::ostringstream told;
    for (const ArgumentDefinition& argument : pick.arguments) {
        told << "+?="[argument.kind == kFlagArgument ? 0 : 1 + int{argument.isRequired}];
        for (const std::string& name : argument.names) told << name << " ";
        told << argument.value << (argument.isList ? "..." : "");
        if (argument.range) told << " " << argument.range->lowest << "-" << argument.range->highest;
        for (const std::string& name : argument.excludes) told << " not " << name;
        told << " " << argument.choices.size() << "\n";
    }
    EXPECT_EQ(told.str(),
              "+-h --help  0\n"
              "=BASKET TEXT 0\n"
              "?FILE TEXT... 0\n"
              "+-q --quiet  0\n"
              "?-o --output TEXT 0\n"
              "?--title TEXT 0\n"
              "?--rows NUMBER 0-4294967295 0\n"
              "?--after NUMBER -9223372036854775808-9223372036854775807 0\n"
              "?--level NUMBER 0-3 0\n"
              "?--fruit apple|pear 2\n"
              "?--other apple|pear not --output 2\n"
              "?-s --set TEXT... 0\n"
              "?--key KEY=0|1|2... 0-2 0\n");
}

TEST(Arguments, CountsHowOftenEachIsGiven) {
    Arguments program("tool", "tool: what it is");
    CountOptions& options = program.Runs(Count);
    const Argument& ids = program.Option("--id", options.ids, "Of these");
    EXPECT_TRUE(program.Parse({"--id", "2", "--id=1"}).run);
    EXPECT_EQ(ids.Count(), 2U);
    EXPECT_EQ(options.ids, (std::vector<std::int64_t>{2, 1}));
    EXPECT_THROW(program.Command("no such", "Under nothing"), std::invalid_argument);
}

}  // namespace
}  // namespace quillory
