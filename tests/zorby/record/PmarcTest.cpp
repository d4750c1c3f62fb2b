#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace zorby {
namespace {

std::vector<std::string> Fields(const CPmarc& record) {
    return {record.begin(), record.end()};
}

CPmarc WithTags(std::initializer_list<int> tags) {
    CPmarc record;
    int occurrence = 0;
    for (const int tag : tags) record.FieldNew(tag, occurrence);
    return record;
}

std::string CommFormat(const CPmarc& record) {
    std::string bytes = "old";
    record.ConvertToUSMARCCommFormat(bytes);
    return bytes;
}

TEST(Pmarc, FieldNewFindsItsPlace) {
    struct Case {
        std::initializer_list<int> before;
        int tag;
        int index;
        int occurrence;
    };
    const Case kCases[] = {
        {{}, 245, 0, 1},
        {{100, 300}, 245, 1, 1},
        {{100, 245, 300}, 245, 2, 2},
        {{504, 650}, 500, 1, 1},
        {{650, 700}, 600, 1, 1},
        {{650, 600, 700}, 650, 2, 2},
        {{504, 500}, 490, 0, 1},
        {{8, 245}, 1, 0, 1},
        {{245}, 0, 0, 1},
        {{500, 504, 500}, 500, 3, 3},
        {{100}, 999, 1, 1},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.before) + " and " + std::to_string(c.tag));
        CPmarc record = WithTags(c.before);
        int occurrence = 0;
        EXPECT_EQ(record.FieldNew(c.tag, occurrence), c.index);
        EXPECT_EQ(occurrence, c.occurrence);
        EXPECT_EQ(record.FieldGetIndexForTagOccurance(static_cast<unsigned>(c.tag), occurrence),
                  c.index);
    }
    EXPECT_EQ(Fields(WithTags({8, 10})), (std::vector<std::string>{"008", "010  "}));
}

// The plain wording of the rules, to hold the index of runs against.
class PlainList {
public:
    int FieldNew(const std::string& tag, int& occurrence) {
        const auto above = [&](const std::string& field) {
            if (tag[0] == '5' || tag[0] == '6') return field[0] > tag[0];
            return field.substr(0, 3) > tag;
        };
        std::size_t at = 0;
        occurrence = 1;
        for (; at < fields.size() && !above(fields[at]); ++at) {
            if (fields[at].substr(0, 3) == tag) ++occurrence;
        }
        fields.insert(fields.begin() + static_cast<std::ptrdiff_t>(at),
                      tag + (tag < "010" ? "" : "  "));
        return static_cast<int>(at);
    }
    int Find(const std::string& tag, int occurrence) const {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (fields[i].substr(0, 3) == tag && --occurrence == 0) return static_cast<int>(i);
        }
        return -1;
    }
    std::vector<std::string> fields;
};

TEST(Pmarc, AgreesWithThePlainWordingOverRandomLists) {
    std::mt19937 random(7);
    constexpr int kTags[] = {0, 1, 8, 10, 245, 500, 504, 599, 600, 650, 700, 999};
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        CPmarc record;
        PlainList plain;
        for (int step = 0; step < 60; ++step) {
            const int tag = kTags[random() % std::size(kTags)];
            char digits[16];
            std::snprintf(digits, sizeof digits, "%03d", tag);
            if (random() % 4 == 0) {  // a line of MicroLIF, which goes to the end
                std::string line = std::string(digits) + "xx_atext";
                plain.fields.push_back(tag > 9 ? std::string(digits) + "xx\037atext" : line);
                record.AddOldMicrolifField(line.data(), static_cast<int>(line.size()));
                continue;
            }
            int occurrence = 0;
            int expectedOccurrence = 0;
            EXPECT_EQ(record.FieldNew(tag, occurrence), plain.FieldNew(digits, expectedOccurrence))
                << step;
            EXPECT_EQ(occurrence, expectedOccurrence) << step;
            const int any = static_cast<int>(random() % 8);
            EXPECT_EQ(record.FieldGetIndexForTagOccurance(static_cast<unsigned>(tag), any),
                      plain.Find(digits, any))
                << step;
        }
        ASSERT_EQ(Fields(record), plain.fields);
        ASSERT_EQ(record.FieldCount(), plain.fields.size());
    }
}

TEST(Pmarc, IndicatorsAndSubfields) {
    CPmarc record = WithTags({8, 245});
    EXPECT_EQ(record.FieldSetIndicators(8, 1, '1', '2'), 0);
    EXPECT_EQ(record.FieldSetIndicators(245, 2, '1', '2'), 0);
    EXPECT_EQ(record.FieldSetIndicators(245, 0, '1', '2'), 0);
    EXPECT_EQ(record.FieldSetIndicators(245, 1, '_', '\xB7'), 1);
    EXPECT_EQ(Fields(record)[1], "245 \xB7");
    EXPECT_EQ(record.FieldAddSubfield(8, 1, 'a', "x", 0), 0);
    EXPECT_EQ(record.FieldAddSubfield(246, 1, 'a', "x", 0), 0);
    EXPECT_EQ(record.FieldExists(245, 1), 1);
    EXPECT_EQ(record.FieldExists(-5, 1), 0);

    struct Case {
        std::string text;
        char code, separator;
        std::string field;
    };
    const Case kCases[] = {
        {"a;b", 'x', ';', "245  \x1Fxa\x1Fxb"},
        {";a;b", 'x', ';', "245  \x1Fx;a;b"},
        {"a;", 'x', ';', "245  \x1Fxa\x1Fx"},
        {" a ; b\t", 'x', ';', "245  \x1Fxa\x1Fxb"},
        {" a ", 'x', ';', "245  \x1Fxa"},  // stripped although nothing splits
        {" a ", 'x', 0, "245  \x1Fx a "},
        {"", 'x', ';', "245  \x1Fx"},
        {"text", 0, 0, "245  text"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.field);
        CPmarc one = WithTags({245});
        EXPECT_EQ(one.FieldAddSubfield(245, 1, c.code, c.text, c.separator), 1);
        EXPECT_EQ(Fields(one)[0], c.field);
    }
}

TEST(Pmarc, ControlFieldsAndAstaAdd) {
    CPmarc record;
    EXPECT_EQ(record.FieldAddControlField(10, 1, "x", 0), 0);
    EXPECT_EQ(record.FieldAddControlField(8, 1, "", 0), 0);
    EXPECT_EQ(record.FieldAddControlField(8, 5, "ab\xB7", 0), 1);
    EXPECT_EQ(record.FieldAddControlField(8, 1, "c\xB7", 1), 1);
    EXPECT_EQ(Fields(record)[0], "008ab c ");

    record.AstaAdd(100, '\xB7', '1', 'a', 0, "Melville");
    record.AstaAdd(100, '1', '_', 'd', 0, "1819");
    record.AstaAdd(100, '0', '0', 'a', 1, "Other");
    record.AstaAdd(1, '0', '0', 'a', 1, "id\xB7");
    EXPECT_EQ(Fields(record),
              (std::vector<std::string>{"001id ", "008ab c ", "1001 \037aMelville\037d1819",
                                        "10000\037aOther"}));
    CPmarc moved = std::move(record);
    EXPECT_EQ(record.FieldExists(100, 2), 0);  // NOLINT: a record that was moved from is empty
    record = std::move(moved);
    std::string lines = ">";
    record.GetRecordAsCString(lines);
    EXPECT_EQ(lines.substr(0, 8), ">001id \r");
}

// A text may be a part of the record that it is added to.
TEST(Pmarc, ClearForgetsAllFields) {
    CPmarc record;
    int occurrence = 0;
    record.FieldAppend("900", "  ");
    record.FieldAppend("245", "  ");
    record.FieldNew(500, occurrence);
    record.Clear();
    EXPECT_EQ(record.FieldCount(), 0U);
    EXPECT_EQ(record.FieldExists(500, 1), 0);
    EXPECT_EQ(record.FieldNew(245, occurrence), 0);
    EXPECT_EQ(occurrence, 1);
    EXPECT_EQ(record.FieldNew(500, occurrence), 1);
    EXPECT_EQ(record.FieldCount(), 2U);
}

TEST(Pmarc, TakesItsOwnTexts) {
    CPmarc record;
    const std::string title = "A title that is too long to be held in place";
    record.AstaAdd(245, '1', '0', 'a', 1, title);
    const auto text = [&record] { return std::string_view(*record.begin()).substr(7, 44); };
    record.FieldAddSubfield(245, 1, 'b', text(), 0);
    record.FieldAddSubfield(245, 1, 'c', text(), ' ');
    for (int i = 0; i < 20; ++i) record.AstaAdd(500, ' ', ' ', 'a', 1, text());
    EXPECT_EQ(record.begin()->substr(5, 92), "\037a" + title + "\037b" + title);
    EXPECT_EQ(std::string_view(*std::next(record.begin(), 20)).substr(7), title);
}

TEST(Pmarc, CommFormat) {
    CPmarc record;
    EXPECT_EQ(CommFormat(record), "");
    record.FieldAddControlField(0, 1, "00000nam a2200000 a 4500", 0);
    EXPECT_EQ(CommFormat(record), "") << "a leader alone";
    record.AstaAdd(245, '1', '0', 'a', 1, "Title");
    EXPECT_EQ(CommFormat(record),
              "00048nam a2200037 a 4500"
              "245001000000\03610\037aTitle\x1E\x1D");
    CPmarc bare;
    bare.AstaAdd(245, '1', '0', 'a', 1, "Title");
    EXPECT_EQ(CommFormat(bare).substr(0, 24), "00048|||||||00037|||||||");
    bare.FieldAddControlField(1, 1, std::string("a\0b", 3), 0);
    EXPECT_EQ(CommFormat(bare).find('\0'), std::string::npos);
}

TEST(Pmarc, LongFieldsAndRecords) {
    CPmarc record;
    record.AstaAdd(500, ' ', ' ', 'a', 1, std::string(10000, 'x'));
    record.AstaAdd(500, ' ', ' ', 'a', 1, "next");
    const std::string bytes = CommFormat(record);
    EXPECT_EQ(bytes.substr(24, 24), "500999900000500000910005");

    // Totals around the limit, made by one long field and one that fills up.
    for (const auto& [total, cut] :
         std::vector<std::pair<std::size_t, std::size_t>>{{99999, 0}, {100000, 10}, {100020, 30}}) {
        SCOPED_TRACE(total);
        const std::size_t directory = 20 * 12;
        const std::size_t data = total - directory - 26;
        CommFormatWriter writer;
        for (int i = 0; i < 19; ++i) {
            ASSERT_TRUE(writer.AddField("500", std::string(4999, 'x'))) << i;
        }
        ASSERT_TRUE(writer.AddField("900", std::string(data - 19 * 5000 - 1, 'y')));
        std::string out;
        EXPECT_EQ(writer.Finish(out), cut);
        EXPECT_EQ(out.size(), total - cut);
        EXPECT_EQ(out.substr(0, 5), std::to_string(total - cut));
        EXPECT_EQ(out.back(), kRecordEnd);
    }

    // A field without room is skipped, and a shorter one behind it still fits.
    CommFormatWriter writer;
    EXPECT_TRUE(writer.AddField("500", std::string(99990, 'x')));
    EXPECT_FALSE(writer.AddField("501", std::string(7, 'x')));
    EXPECT_TRUE(writer.AddField("502", std::string(6, 'x')));
}

TEST(Pmarc, OldMicrolif) {
    CPmarc record;
    record.FieldAddControlField(0, 1, "00000nam  2200000 a 4500", 0);
    record.AstaAdd(245, '1', '0', 'a', 1, "Title");
    int occurrence = 0;
    record.FieldNew(9, occurrence);  // a tag alone, which is no line
    std::string text;
    record.ConvertToOldMicrolif(text);
    EXPECT_EQ(text, "LDR00046nam  2200000 a 4500^\r\n24510_aTitle^`\r\n");
    EXPECT_EQ(text.size(), 46U);

    std::string empty;
    CPmarc().ConvertToOldMicrolif(empty);
    EXPECT_EQ(empty, "   00033                   ^\r\n`\r\n");
    CPmarc longLeader;
    longLeader.FieldAddControlField(0, 1, std::string(40, 'x'), 0);
    longLeader.ConvertToOldMicrolif(empty);
    EXPECT_EQ(empty, "LDR00033" + std::string(19, 'x') + "^\r\n`\r\n");
}

TEST(Pmarc, ReadsOldMicrolifLines) {
    const std::pair<std::string, std::string> kCases[] = {
        {"LDR00046nam^", "00000046nam"},
        {"2x5 0_aA_b`B^", "205 0\037aA\037b`B"},
        {"24500_aEnd^`", "24500\037aEnd"},
        {"24500_aEnd\x1E\x1D", "24500\037aEnd"},
        {"24500_aEnd^\r\n", "24500\037aEnd^\r\n"},
        {"008a_b^", "008a_b"},
        {"24", "24"},
    };
    for (auto [line, field] : kCases) {
        SCOPED_TRACE(line);
        CPmarc record;
        record.AddOldMicrolifField(line.data(), static_cast<int>(line.size()));
        EXPECT_EQ(Fields(record), std::vector<std::string>{field});
    }
    CPmarc none;
    std::string ends = "^`";
    none.AddOldMicrolifField(ends.data(), 0);
    EXPECT_EQ(none.FieldCount(), 0U);
}

}  // namespace
}  // namespace zorby
