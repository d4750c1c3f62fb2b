#include <quillory/exchange/Recoder.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <utility>

namespace quillory {
namespace {

const std::string kMarc8Leader = "00000nam  2200000 a 4500";
const std::string kUtf8Leader = "00000nam a2200000 a 4500";

TestRecord Titled(const std::string& leader, const std::string& title) {
    return TestRecord({"LDR" + leader, "001id", "245" + title});
}

TEST(Recoder, LabelFollowsAndLiesAreNoticed) {
    struct Case {
        std::string leader;
        std::string title;
        Charset from, to;
        char label;
        std::string result;
        bool mislabelled;
    };
    const Case kCases[] = {
        {kMarc8Leader, "  \037a\342e", kCharsetAuto, kCharsetUtf8, 'a', "  \037aé", false},
        {kUtf8Leader, "  \037aé", kCharsetAuto, kCharsetMarc8, ' ', "  \037a\342e", false},
        {kMarc8Leader, "  \037aplain", kCharsetAuto, kCharsetUtf8, 'a', "  \037aplain", false},
        {kMarc8Leader, "  \037aé", kCharsetAuto, kCharsetUtf8, 'a', "  \037aé", true},
        {kMarc8Leader, "  \037aé", kCharsetAuto, kCharsetMarc8, ' ', "  \037a\342e", true},
        {kUtf8Leader, "  \037a\342e", kCharsetAuto, kCharsetUtf8, 'a', "  \037aé", true},
        // Forced: the bytes are read as told.
        {kUtf8Leader, "  \037a\xE9", kCharsetLatin1, kCharsetUtf8, 'a', "  \037aé", false},
        {kMarc8Leader, "  \037a\xC3\xA9", kCharsetMarc8, kCharsetUtf8, 'a', "  \037a\u00A9\u266D",
         false},
        // Mostly UTF-8, with one bad byte: it stays UTF-8.
        {kUtf8Leader, "  \037aé \xFF", kCharsetAuto, kCharsetUtf8, 'a', "  \037aé \xFF", false},
        {kMarc8Leader, "  \037a\xFF\xE9", kCharsetAuto, kCharsetAuto, ' ', "  \037a\xFF\xE9",
         false},
    };
    for (const Case& c : kCases) {
        Recoder recoder({c.from, c.to, {}});
        TestRecord test = Titled(c.leader, c.title);
        Record& record = test.record;
        record.bytes = "verbatim";
        Losses losses;
        const Recoder::Result result = recoder.Recode(record, losses);
        EXPECT_EQ(record.fields[1].content, c.result) << c.title;
        EXPECT_EQ(record.leader[9], c.label) << c.result;
        EXPECT_EQ(result.mislabelled.has_value(), c.mislabelled) << c.result;
        EXPECT_EQ(record.bytes.empty(), c.result != c.title) << c.result;
    }
}

// Whether a record is plain can be seen in its bytes, or field by field.
TEST(Recoder, BytesOfTheRecordMakeNoDifference) {
    const std::string signs = " ~&#x;\037\177\200\033\xE2";
    std::mt19937 random(3);
    for (int round = 0; round < 500; ++round) {
        std::string title = "10\037a" + std::string(random() % 40, 'x');
        title.insert(4 + random() % (title.size() - 3), "&#x00E9;", random() % 9);
        title += signs[random() % signs.size()];
        TestRecord one = Titled(kMarc8Leader, title + 'x');
        TestRecord other = Titled(kMarc8Leader, title + 'x');
        const std::string bytes =
            "leader, 24 bytes of them" + std::string(24, '0') + "\036id\036" + title + "x\036\035";
        other.record.bytes = bytes;
        Losses losses;
        Recoder recoder({kCharsetMarc8, kCharsetUtf8, {}});
        recoder.Recode(one.record, losses);
        const Lines lines = LinesOf(one.record);
        recoder.Recode(other.record, losses);
        EXPECT_EQ(LinesOf(other.record), lines) << testing::PrintToString(title);
    }
}

TEST(Recoder, IndicatorsAreNoText) {
    const std::string title = "\xB7\061\037a\xE2\145";
    TestRecord test = Titled(kMarc8Leader, title);
    Losses losses;
    Recoder recoder({kCharsetMarc8, kCharsetUtf8, {}});
    recoder.Recode(test.record, losses);
    EXPECT_EQ(test.record.fields[1].content, " 1\037a\u00E9");
    EXPECT_EQ(losses.Text(""), "byte 0xB7 is no indicator, written as a blank: 1\n");
}

// What stands before a delimiter is a text of its own, and a code is no letter.
TEST(Recoder, ContentIsCarriedSubfieldBySubfield) {
    const std::pair<std::string, std::string> kTwins[] = {
        {"\037a\342e\037b\351c", "\037aé\037bč"},
        {"\342e\037a\342e", "é\037aé"},
        {"\037e\342\037e", "\037e \u0301\037e"},
        {"\037\342e\037", "\037é\037"},
        {"\037\037a\342e", "\037\037aé"},
        {"\037a\342e\037\033(B\037\033(Bbx", "\037aé\037bx"},
    };
    TextConverter converter(kCharsetMarc8, kCharsetUtf8, kNormalFormC);
    for (const auto& [marc8, utf8] : kTwins) {
        Losses losses;
        std::string out;
        AppendConverted(marc8, converter, out, losses);
        EXPECT_EQ(out, utf8) << testing::PrintToString(marc8);
    }
}

TEST(Recoder, NormalFormOnRequest) {
    Losses losses;
    TestRecord test = Titled(kUtf8Leader, "  \037a\u00E9");
    Recoder({kCharsetAuto, kCharsetUtf8, {}}).Recode(test.record, losses);
    EXPECT_EQ(test.record.fields[1].content, "  \037a\u00E9");
    Recoder recoder({kCharsetAuto, kCharsetUtf8, kNormalFormD});
    recoder.Recode(test.record, losses);
    EXPECT_EQ(test.record.fields[1].content, "  \037ae\u0301");
    Recoder stays({kCharsetAuto, kCharsetAuto, kNormalFormC});
    stays.Recode(test.record, losses);
    EXPECT_EQ(test.record.fields[1].content, "  \037a\u00E9");
}

}  // namespace
}  // namespace quillory
