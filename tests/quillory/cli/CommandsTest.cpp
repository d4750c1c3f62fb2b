#include <quillory/cli/Commands.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace quillory {
namespace {

using Visit =
    std::function<void(const std::vector<std::string>& path, const CommandDefinition& command)>;

void Walk(const CommandDefinition& command, std::vector<std::string> path, const Visit& visit) {
    visit(path, command);
    for (const CommandDefinition& under : command.commands) {
        path.push_back(under.name);
        Walk(under, path, visit);
        path.pop_back();
    }
}

void WalkCommands(const Visit& visit) {
    Arguments program("quillory", "quillory", "1");
    DeclareCommands(program);
    Walk(program.Definition(), {}, visit);
}

TEST(Commands, AllAreCalledAndSayWhatTheyDo) {
    std::size_t count = 0;
    WalkCommands([&count](std::vector<std::string> path, const CommandDefinition& definition) {
        ++count;
        Arguments program("quillory", "quillory", "1");
        DeclareCommands(program);
        std::string name = "quillory";
        for (const std::string& part : path) name += " " + part;
        path.emplace_back("--help");
        const Call call = program.Parse(path);
        EXPECT_EQ(call.command, name);
        EXPECT_TRUE(call.text.starts_with(definition.summary + "\nUsage: " + name)) << call.text;
    });
    EXPECT_GT(count, 20U);
}

TEST(Commands, ArgumentsAreSaidInOneForm) {
    WalkCommands([](const auto& path, const CommandDefinition& command) {
        SCOPED_TRACE(testing::PrintToString(path));
        std::set<std::string> names;
        for (const ArgumentDefinition& argument : command.arguments) {
            SCOPED_TRACE(argument.names.back());
            EXPECT_FALSE(argument.text.empty() || argument.text.ends_with('.'));
            EXPECT_EQ(argument.value.empty(), argument.kind == kFlagArgument);
            const bool isPositional = argument.kind == kPositionalArgument;
            EXPECT_NE(isPositional, argument.names.back().starts_with("--"));
            for (const std::string& name : argument.names) {
                EXPECT_TRUE(names.insert(name).second) << name;
            }
        }
    });
}

// An option means the same in every command, and has one spelling.
TEST(Commands, OptionsHaveOneSpelling) {
    std::map<std::string, std::set<std::string>> longNames;  // by their short ones
    std::set<std::string> formats;
    WalkCommands([&](const auto&, const CommandDefinition& command) {
        for (const ArgumentDefinition& argument : command.arguments) {
            const std::string& name = argument.names.back();
            EXPECT_NE(name, "--json") << command.name;
            if (argument.names.size() > 1) longNames[argument.names.front()].insert(name);
            if (name == "--format") formats.insert(argument.value);
        }
    });
    for (const auto& [shortName, names] : longNames) {
        EXPECT_EQ(names.size(), 1U) << shortName << testing::PrintToString(names);
    }
    EXPECT_EQ(formats, (std::set<std::string>{"text|json", "text|jsonl", "text|jsonl|html",
                                              "text|jsonl|html|sarif", "text|json|jsonl|html",
                                              "text|tsv|json|html", "tsv|csv|jsonl", "tsv|json",
                                              "text|pdf"}));
}

}  // namespace
}  // namespace quillory
