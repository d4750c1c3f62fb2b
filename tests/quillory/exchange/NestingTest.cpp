#include <quillory/exchange/Nesting.h>

#include <gtest/gtest.h>

#include <string>

namespace quillory {
namespace {

std::string Times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

TEST(Nesting, IsCountedInBracketsAndInKeys) {
    constexpr std::size_t kMost = kDeepestNesting;
    EXPECT_FALSE(TooDeepInJson(Times(kMost, "[")));
    EXPECT_EQ(TooDeepInJson(Times(kMost + 1, "[")), kMost);
    EXPECT_EQ(TooDeepInJson("{\"a\":" + Times(kMost, "{")), kMost + 4);
    EXPECT_FALSE(TooDeepInToml("a" + Times(kMost, ".a") + " = 1"));
    EXPECT_TRUE(TooDeepInToml("[a" + Times(kMost, ".a") + "]"));
    EXPECT_TRUE(TooDeepInToml("a" + Times(kMost + 1, " . \"b.c\"") + " = 1"));
    EXPECT_TRUE(TooDeepInToml("a = " + Times(kMost + 1, "{a = ")));
}

TEST(Nesting, IsNotCountedInTexts) {
    const std::string dots(1000, '.');
    const std::string brackets(1000, '[');
    const std::string closed = Times(1000, "[],{},");
    const std::string numbers = Times(1000, "1.5,");
    for (const std::string& json :
         {"{\"a\":\"" + brackets + "\"}", "\"\\\"" + brackets + "\"", closed, numbers}) {
        EXPECT_FALSE(TooDeepInJson(json)) << json.substr(0, 20);
    }
    for (const std::string& toml :
         {"a = \"" + dots + "\"", "a = '" + brackets + "'", "a = \"\"\"\n\"" + dots + "\n\"\"\"",
          "a = '''\n'" + brackets + "\n'''", "# " + dots + "\n", "a = [" + numbers + "]",
          Times(1000, "a.b = 1\n"), Times(1000, "[a.b]\n"), "a = \"\\\"" + dots + "\""}) {
        EXPECT_FALSE(TooDeepInToml(toml)) << toml.substr(0, 20);
    }
    EXPECT_FALSE(TooDeepInToml("a = \"" + dots));
}

}  // namespace
}  // namespace quillory
