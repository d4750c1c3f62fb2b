#include <quillory/jobs/CheckLine.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillory {
namespace {

constexpr const char* kLine =
    R"({"file":"a \"b\".mrc","record":7,"offset":1200,"control_number":"x1","title":"T",)"
    R"("material":"books","verdict":"warnings","findings":[{"rule":"isbn-invalid",)"
    R"("severity":"warning","place":"020[2] $a","tag":"020","occurrence":2,"subfield":"a",)"
    R"("title":"Wrong ISBN","message":"5: too short"},{"rule":"own","severity":"note",)"
    R"("place":null,"tag":null,"occurrence":null,"subfield":null,"title":"Ours",)"
    R"("message":"so it is","why":"We say so."}],"001":"x1 ","fault":"odd","fields":["LDR",)"
    R"("001 x1"],"number_severity":"error","numbers_at":1,)"
    R"("numbers":["020 $a: 5, \"6\"","001: x1"]})";

TEST(CheckLine, HasAllThatACheckWrote) {
    CheckLineReader reader;
    CheckLine line;
    ASSERT_TRUE(reader.Read(kLine, line));
    EXPECT_EQ(line.file, "a \"b\".mrc");
    EXPECT_EQ(line.item.number, 7U);
    EXPECT_EQ(line.item.offset, 1200U);
    EXPECT_EQ(line.item.record.ControlNumber(), "x1 ");
    EXPECT_EQ(line.words.material, "books");
    EXPECT_EQ(line.words.fault, "odd");
    ASSERT_EQ(line.words.lines.size(), 2U);
    EXPECT_EQ(line.words.lines[1].tag, "001");
    ASSERT_EQ(line.remarks.size(), 2U);
    EXPECT_EQ(RemarkLine(line.remarks[0]), "020[2] $a: warning: 5: too short [isbn-invalid]");
    EXPECT_EQ(line.remarks[0].rule->why, RuleOf(RuleId::IsbnInvalid).why);
    EXPECT_EQ(RemarkLine(line.remarks[1]), "note: so it is [own]");
    EXPECT_EQ(line.remarks[1].rule->why, "We say so.");
    EXPECT_GE(line.remarks[1].rule->id, RuleId::Count);
    EXPECT_EQ(line.numbersAt, 1U);
    EXPECT_EQ(line.severities.at(RuleId::NumberRepeated), Severity::Error);
}

TEST(CheckLine, ATextMayEndLikeTheFindings) {
    std::string text = kLine;
    const std::string message = "so it is";
    text.insert(text.find(message) + message.size(), "],");
    CheckLineReader reader;
    CheckLine line;
    ASSERT_TRUE(reader.Read(text, line));
    ASSERT_EQ(line.remarks.size(), 2U);
    EXPECT_EQ(line.remarks[1].found, "so it is],");
    EXPECT_EQ(line.words.lines.size(), 2U);
}

TEST(CheckLine, NumbersAreFoundInAnyOrderOfMembers) {
    CheckLineReader reader;
    CheckLine line;
    for (const std::string& text :
         {std::string(kLine), "  " + std::string(kLine),
          std::string(R"({"numbers": ["020 $a: 5, \"6\"","001: x1"], "record": 7, "offset": 0,)"
                      R"("findings":[],"control_number":"","title":"","material":"",)"
                      R"("file":"a \"b\".mrc"})")}) {
        SCOPED_TRACE(text);
        ASSERT_TRUE(reader.ReadNumbers(text, line));
        EXPECT_EQ(line.file, "a \"b\".mrc");
        EXPECT_EQ(line.item.number, 7U);
        EXPECT_EQ(line.numbers, (std::vector<std::string>{"020 $a: 5, \"6\"", "001: x1"}));
    }
}

TEST(CheckLine, IsRefusedIfItIsNestedTooDeep) {
    const std::string sound = kLine;
    const std::size_t findings = sound.find("[{\"rule\"") + 1;
    const std::string deep = std::string(50'000, '[') + std::string(50'000, ']');
    CheckLineReader reader;
    CheckLine line;
    for (const std::string& text : {deep, sound.substr(0, findings) + deep + "]}",
                                    sound.substr(0, findings) + deep + sound.substr(findings)}) {
        EXPECT_FALSE(reader.Read(text, line));
    }
}

// What is changed at random is read or refused, and both readings take the numbers for the same.
TEST(CheckLine, MayBeAnything) {
    std::mt19937 random(11);
    const std::string sound = kLine;
    for (int round = 0; round < 4000; ++round) {
        std::string text = sound;
        for (auto changes = random() % 3 + 1; changes > 0; --changes) {
            const std::size_t at = random() % text.size();
            if (random() % 3 == 0) {
                text.erase(at, random() % 20 + 1);
            } else {
                text[at] = "\"{}[],:0-\\x\xC3\x1f"[random() % 13];
            }
            if (text.empty()) break;
        }
        CheckLineReader reader;
        CheckLine line;
        if (!reader.Read(text, line)) continue;
        CheckLine numbers;
        ASSERT_TRUE(reader.ReadNumbers(text, numbers)) << text;
        EXPECT_EQ(numbers.numbers, line.numbers) << text;
        EXPECT_EQ(numbers.file, line.file) << text;
    }
}

}  // namespace
}  // namespace quillory
