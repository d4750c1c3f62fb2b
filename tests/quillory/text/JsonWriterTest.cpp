#include <quillory/text/JsonWriter.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace quillory {

struct Leaf {
    std::string name;
    std::optional<int> count;
    bool isRipe = false;
};

void ToJson(const Leaf& leaf, JsonWriter& json) {
    json.BeginObject();
    json.Member("name", leaf.name);
    json.MemberIfAny("count", leaf.count);
    json.MemberIfAny("note", std::string());
    json.Member("ripe", leaf.isRipe);
    json.EndObject();
}

struct Tree {
    std::vector<Leaf> leaves;
    std::vector<std::string> names;
    std::optional<std::string> owner;
};

void ToJson(const Tree& tree, JsonWriter& json) {
    json.BeginObject();
    json.Member("leaves", tree.leaves);
    json.Member("names", tree.names);
    json.Member("owner", tree.owner);
    json.Name("nothing");
    json.BeginObject();
    json.EndObject();
    json.EndObject();
}

namespace {

using Json = nlohmann::ordered_json;

TEST(JsonWriter, LaysDocumentsOut) {
    const Tree tree{{{"a", 1, true}, {"b", {}, false}}, {"x", "y"}, {}};
    EXPECT_EQ(JsonLine(tree),
              "{\"leaves\":[{\"name\":\"a\",\"count\":1,\"ripe\":true},"
              "{\"name\":\"b\",\"ripe\":false}],\"names\":[\"x\",\"y\"],\"owner\":null,"
              "\"nothing\":{}}\n");
    EXPECT_EQ(JsonText(tree), Json::parse(JsonLine(tree)).dump(2) + "\n");
    EXPECT_EQ(JsonText(Tree{}),
              "{\n  \"leaves\": [],\n  \"names\": [],\n  \"owner\": null,\n  \"nothing\": {}\n}\n");
    EXPECT_EQ(JsonText(std::vector<Leaf>{}), "[]\n");
    EXPECT_EQ(JsonLine(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808\n");
    EXPECT_EQ(JsonLine(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615\n");
}

TEST(JsonWriter, EveryByteComesOutAsACharacter) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const std::string text{'a', static_cast<char>(byte), 'z'};
        const std::string line = JsonLine(text);
        EXPECT_EQ(line, Json(text).dump(-1, ' ', false, Json::error_handler_t::replace) + "\n");
        EXPECT_EQ(Json::parse(line).get<std::string>(), byte < 0x80 ? text : "a\uFFFDz");
    }
}

TEST(JsonWriter, CountsBytesThatAreNoCharacters) {
    std::string text;
    Losses losses;
    JsonWriter(text, losses).Value("\xE2\x82 \u20AC\xFF");
    EXPECT_EQ(text, "\"\uFFFD\uFFFD \u20AC\uFFFD\"");
    EXPECT_EQ(losses.Text(""),
              "byte 0x82 is no character, written as U+FFFD: 1\n"
              "byte 0xE2 is no character, written as U+FFFD: 1\n"
              "byte 0xFF is no character, written as U+FFFD: 1\n");
}

TEST(JsonWriter, RandomTextsComeBack) {
    const std::vector<std::string> signs = {"a", "\"", "\\",     "/",      "\n",     "\t",
                                            "{", "]",  "\u0085", "\u2028", "\u007F", "\U0010FFFF",
                                            "'", "<",  "\u00E9", "\uFFFF", "\b",     "\x1F"};
    std::mt19937 random(5);
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        std::vector<std::string> texts(random() % 4);
        for (std::string& text : texts) {
            for (auto left = random() % 12; left > 0; --left) {
                text += signs[random() % signs.size()];
            }
            if (random() % 8 == 0) text += '\0';
        }
        EXPECT_EQ(JsonText(texts), Json(texts).dump(2) + "\n");
        EXPECT_EQ(Json::parse(JsonLine(texts)).get<std::vector<std::string>>(), texts);
    }
}

}  // namespace
}  // namespace quillory
