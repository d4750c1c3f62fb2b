#include <quillory/faults/FaultCode.h>
#include <quillory/reports/RecordShower.h>
#include <quillory/reports/ScreenText.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

namespace quillory {
namespace {

TEST(ScreenText, PadsByColumns) {
    EXPECT_EQ(Padded("ab", 4), "ab  ");
    EXPECT_EQ(Padded("日本", 6), "日本  ");
    EXPECT_EQ(Padded("e\u0301", 2), "e\u0301 ");
    EXPECT_EQ(Padded("abc", 2), "abc");
    EXPECT_EQ(RightAligned("12", 4), "  12");
    EXPECT_EQ(RightAligned("12345", 4), "12345");
    EXPECT_EQ(Widest(std::vector<std::string>{"a", "日本", ""}, std::identity()), 4U);
}

TEST(ScreenText, ParagraphsKeepWithinTheirColumns) {
    std::string words;
    for (int i = 0; i < 60; ++i) {
        words += (i % 7 == 0 ? "\r\n" : " ") + std::string(static_cast<std::size_t>(i % 9), 'x');
    }
    const std::string text = Paragraph(words, 4);
    std::size_t letters = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        const std::string line = text.substr(start, end - start);
        EXPECT_LE(line.size(), 76U) << line;
        EXPECT_EQ(line.find_first_not_of(' '), 4U) << line;
        EXPECT_EQ(line.find("  ", 4), line.npos) << line;
        letters += static_cast<std::size_t>(std::ranges::count(line, 'x'));
        start = end + 1;
    }
    EXPECT_EQ(letters, static_cast<std::size_t>(std::ranges::count(words, 'x')));
    EXPECT_EQ(Paragraph(std::string(90, 'y'), 2), "  " + std::string(90, 'y') + "\n");
}

class ListeningPort : public JobPort {
public:
    void Say(const Message& message) override { said.push_back(MessageLine(message)); }
    std::vector<std::string> said;
};

TEST(RecordShower, WritesToTheOutputThatItIsGiven) {
    const TemporaryFile file;
    ListeningPort port;
    Reporter reporter(port, {});
    reporter.BeginFile("f");
    Output output(file.Path());
    ShowOptions options;
    options.damaged = true;
    RecordShower shower(options, kCharsetAuto, output, reporter);
    Item item;
    item.number = 1;
    item.record.leader = "00000nam a2200000 a 4500";
    // Whatever stands in a data field is shown: parts without a delimiter or a code, too.
    item.record.fields = {{"001", "a\x1B"}, {"245", "1 lost\037aTitle\037\037b\037"}, {"500", "0"}};
    shower.Take(item);
    item.record.fields = {{"245", "10\037a\xFF"}};
    item.fault = ItemFault{{FaultCode::kStrayBytes}};
    shower.Take(item);
    item.kind = kItemDamaged;
    item.record.fields = {{"???", "words"}};
    shower.Take(item);
    shower.Finish();
    output.Finish();
    EXPECT_EQ(file.Read(),
              "LDR     00000nam a2200000 a 4500\n001     a<1B>\n245 1#  lost $a Title $  $b  $ \n"
              "500 0   \n\nLDR     00000nam a2200000 a 4500\n245 10  $a \xEF\xBF\xBD\n\n"
              "(damaged: what can be read of the record)\n"
              "LDR     00000nam a2200000 a 4500\n???     words\n");
    EXPECT_EQ(shower.Result(), kStatusFindings);
    EXPECT_EQ(port.said,
              (std::vector<std::string>{
                  "f: record 1 at byte 0: stray bytes between records; read from its terminators",
                  "f: record 1 at byte 0: leader/09: the record says UTF-8, its bytes are MARC-8",
                  "f: record 1 at byte 0: stray bytes between records",
                  "characters not shown as they are:\n    byte 0xFF is no character, written as "
                  "U+FFFD: 1\n"}));
}

}  // namespace
}  // namespace quillory
