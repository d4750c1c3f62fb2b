#include <quillory/repair/RecordRepairer.h>
#include <zorby/record/CommFormat.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <utility>
#include <vector>

namespace quillory {
namespace {

using namespace zorby;

const std::string kBook = "261121s2026    ci a   j      000 1 hrv d";

const CodeLists& Lists() {
    static const CodeLists lists{CodeStatus(CODES_FILE)};
    return lists;
}

class RecordRepairerTest : public testing::Test {
protected:
    RecordRepairerTest() { CTemplateList::InitializeTemplateList(DATA_FOLDER); }
    ~RecordRepairerTest() override { CTemplateList::DestroyTemplateList(); }

    using Fields = std::vector<std::pair<std::string, std::string>>;

    // A line for each repair. The fields are then as the repair has them, and so is leader_.
    std::string Repaired(const std::string& leader, Fields& fields, RepairOptions options = {}) {
        TestRecord test({"LDR" + leader});
        for (const auto& [tag, content] : fields) test.Add(tag + content);
        RecordRepairer repairer(Lists(), options);
        std::string said;
        for (const Repair& repair : repairer.PutRight(test.record)) said += Line(repair);
        leader_ = test.record.leader;
        Fields after;
        for (const auto& field : test.record.fields) after.emplace_back(field.tag, field.content);
        fields = after;
        return said;
    }

    std::string Repaired008(const std::string& field008, RepairOptions options = {},
                            const std::string& leader = kLeader) {
        Fields fields = {{"008", field008}};
        said_ = Repaired(leader, fields, options);
        return fields[0].second;
    }

    static std::string Line(const Repair& repair) {
        constexpr const char* kKinds[] = {"", "kept ", "length ", "left "};
        const std::string line =
            kKinds[static_cast<int>(repair.kind)] + PlaceText(repair.place) + ": ";
        if (repair.element == nullptr) return line + FaultReason(FaultOf(repair)) + "\n";
        return line + repair.before + " -> " + repair.after + "\n";
    }

    std::string leader_;
    std::string said_;
};

std::string With(std::string field, std::size_t position, const std::string& bytes) {
    return field.replace(position, bytes.size(), bytes);
}

TEST_F(RecordRepairerTest, KeepsWhatTheFormatAllows) {
    struct Case {
        std::size_t position;
        std::string got, repaired, strict, said;
    };
    const Case cases[] = {
        {35, "hrv", "hrv", "und", "kept 008/35-37: hrv -> und\n"},
        {35, "xyz", "und", "und", "008/35-37: xyz -> und\n"},
        {35, "eng", "eng", "eng", ""},
        {15, "|||", "|||", "xx ", "kept 008/15-17: ||| -> xx \n"},
        {23, "q", "q", " ", "kept 008/23: q ->  \n"},
        {23, "?", " ", " ", "008/23: ? ->  \n"},
        {23, "g", "g", " ", "kept 008/23: g ->  \n"},  // obsolete
        {18, "a9bq", "a b ", "    ", "008/18-21: a9bq -> a b \n"},
        {18, "9999", "    ", "    ", "008/18-21: 9999 ->     \n"},
        {7, "19x5", "19u5", "19u5", "008/07-10: 19x5 -> 19u5\n"},
        {32, "1", " ", " ", "008/32: 1 ->  \n"},  // obsolete and undefined now
    };
    for (const Case& c : cases) {
        const std::string book = With(With(kBook, 15, "ne "), 35, "eng");
        SCOPED_TRACE(c.got);
        const std::string field = With(book, c.position, c.got);
        EXPECT_EQ(Repaired008(field), With(field, c.position, c.repaired));
        EXPECT_EQ(said_, c.said);
        EXPECT_EQ(Repaired008(field, {.strict = true}), With(field, c.position, c.strict));
    }
}

TEST_F(RecordRepairerTest, LeaderButNotWhatIsTheFilesOwn) {
    struct Case {
        std::string got, repaired, strict;
    };
    const Case cases[] = {
        {"99999nam a2299999 i 4500", "99999nam a2299999 i 4500", "99999nam a2299999 i 4500"},
        {"xxxxx?az?x33yyyyy?.?9999", "xxxxxnam  22yyyyy i 4500", "xxxxxnam  22yyyyy i 4500"},
        {"00000ndm  2200000Ia 4500", "00000ndm  2200000Ia 4500", "00000ncm  2200000 a 4500"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.got);
        Fields fields;
        Repaired(c.got, fields);
        EXPECT_EQ(leader_, c.repaired);
        Repaired(c.got, fields, {.strict = true});
        EXPECT_EQ(leader_, c.strict);
    }
    // A byte 09 that says nothing becomes what the record is.
    Fields fields = {{"245", "10\037aS\303\266hne"}};
    EXPECT_EQ(Repaired("00000nam 02200000 i 4500", fields), "leader/09: 0 -> a\n");
    fields[0].second = "10\037aSch\350one";
    EXPECT_EQ(Repaired("00000nam 02200000 i 4500", fields), "leader/09: 0 ->  \n");
}

TEST_F(RecordRepairerTest, GivesFieldsTheLengthOfTheFormat) {
    EXPECT_EQ(Repaired008(kBook.substr(0, 38)), kBook.substr(0, 38) + "||");
    EXPECT_EQ(said_.substr(0, said_.find('\n')),
              "length 008: 38 bytes, the format has 40; filled up as not coded");
    EXPECT_EQ(Repaired008(kBook + "xy"), kBook);
    EXPECT_EQ(said_.substr(0, said_.find('\n')), "length 008: 42 bytes, the format has 40; cut");
    EXPECT_EQ(Repaired008(""), "000000|||||||||||||||||||||||||| |||||||");

    // A byte too many in the middle moves the language.
    const std::string shifted = " " + kBook;
    EXPECT_EQ(Repaired008(shifted), shifted);
    EXPECT_EQ(said_,
              "left 008: 41 bytes, the format has 40, and country and language are not in their "
              "places\n");
    EXPECT_EQ(Repaired008(shifted, {.strict = true}).size(), 40U);

    Fields fields = {{"006", "m"}, {"007", "co"}, {"007", "ta xyz"}, {"008", kBook}};
    Repaired(kLeader, fields);
    EXPECT_EQ(fields[0].second, "m    ||  | |      ");
    EXPECT_EQ(fields[1].second, "co |||||||||||");
    EXPECT_EQ(fields[2].second, "ta");
}

TEST_F(RecordRepairerTest, MakesNoCodeThatTheFormatHasNot) {
    Fields online = {{"007", "cr c a"}, {"008", With(kBook, 35, "eng")}};
    Repaired("00000nmm a2200000 i 4500", online);
    EXPECT_EQ(online[0].second, "cr c|a||||||||");
    // The second byte of a projection is no form of item.
    Fields globe = {{"007", "db cen"}, {"008", With(kBook, 22, "bb")}};
    Repaired("00000nem a2200000 i 4500", globe, {.strict = true});
    EXPECT_EQ(globe[0].second, "db cen");
}

TEST_F(RecordRepairerTest, FurtherMaterialsByTheirOwnFormats) {
    struct Case {
        std::string leader6;
        Fields fields;
        std::vector<std::string> repaired;
    };
    const Case cases[] = {
        // The 007 of the record itself, by its workform.
        {"e", {{"007", "aj?c?nz?"}}, {"aj canzn"}},
        {"g", {{"007", "vf ?ba?o?"}}, {"vf ubahou"}},
        // A disc that comes with a book: the 006 tells of the 007.
        {"a",
         {{"006", "m?    o  i ?      "}, {"007", "co ?ga---?????"}},
         {"m     o  i        ", "co uga---uuuuu"}},
        // A microform of a book that is none.
        {"a", {{"007", "hd ?fa???bac?"}}, {"hd bfa---bacu"}},
        {"a", {{"007", "f?|a?  ?uu"}}, {"fu|a u  uu"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.leader6 + " " + c.fields.front().second);
        Fields fields = c.fields;
        Repaired(With(kLeader, 6, c.leader6), fields);
        for (std::size_t i = 0; i < c.repaired.size(); ++i) {
            EXPECT_EQ(fields[i].second, c.repaired[i]) << i;
        }
    }
}

TEST_F(RecordRepairerTest, LeavesWhatItCannotTell) {
    struct Case {
        std::string leader;
        Fields fields;
        std::string said;
    };
    const std::string any = "????????????????????????????????????????";
    const Case cases[] = {
        {"?????nz?????????????????", {{"008", any}}, ""},
        {"?????nx?????????????????", {{"008", any}, {"007", "?"}}, ""},
        {"?????n??????????????????",
         {{"008", any}},
         "left : leader/06 is not a type of record, so the material is unknown\n"},
        {"",
         {{"008", any}},
         "left : leader/06 is not a type of record, so the material is unknown\n"},
        {kLeader,
         {{"006", ""}, {"006", "?"}, {"007", "?x"}, {"008", kBook}, {"008", any}},
         "left 006: its first byte is not a type of record or a category\n"
         "left 006[2]: its first byte is not a type of record or a category\n"
         "left 007: its first byte is not a type of record or a category\n"
         "left 008[2]: a record has one 008\n"
         "kept 008/35-37: hrv -> und\n"},
        {kLeader, {}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.leader + " " + c.said);
        Fields fields = c.fields;
        EXPECT_EQ(Repaired(c.leader, fields), c.said);
        EXPECT_EQ(fields, c.fields);
        EXPECT_EQ(leader_, c.leader);
    }
}

// All other bytes of a record stay where they are.
TEST_F(RecordRepairerTest, ChangesARecordInItsPlace) {
    Lines lines{"001id", "24510\037aTitle", "008" + With(kBook, 7, "19x5"), "007ta"};
    std::string bytes = MarcOf(lines);
    Record record;
    CommFormatFields fields;
    ASSERT_FALSE(ReadCommFormat(bytes, fields));
    record.leader = fields.leader;
    record.fields = fields.fields;
    record.bytes = bytes;
    RecordRepairer repairer(Lists(), {});
    repairer.PutRight(record);
    EXPECT_EQ(record.bytes, With(bytes, bytes.find("19x5"), "19u5"));
    EXPECT_EQ(record.fields[2].content, With(kBook, 7, "19u5"));
    EXPECT_EQ(record.ControlNumber(), "id");

    // With another length it has to be put together.
    lines.push_back("007co");
    bytes = MarcOf(lines);
    ASSERT_FALSE(ReadCommFormat(bytes, fields));
    record = {fields.leader, fields.fields, bytes};
    repairer.PutRight(record);
    EXPECT_EQ(record.bytes, "");
    EXPECT_EQ(record.fields[1].content, "10\037aTitle");
    EXPECT_EQ(record.fields[4].content, "co |||||||||||");
}

// Whatever the bytes: a repair leaves nothing to repair, and nothing but coded fields changed.
TEST_F(RecordRepairerTest, OfAnyBytesIsDoneAtOnce) {
    std::mt19937 random(26);
    const auto bytes = [&](std::size_t size) {
        std::string text(size, ' ');
        for (char& byte : text) {
            byte = random() % 4 == 0 ? static_cast<char>(random())
                                     : "abcdefhijmnopqrsuvxz |0129-"[random() % 27];
        }
        return text;
    };
    for (int round = 0; round < 4000; ++round) {
        std::string leader = bytes(24);
        leader[6] = "acdefgijkmoprt"[random() % 14];
        const bool isGlobe = leader[6] == 'e';
        Fields fields = {{"001", bytes(3)}, {"245", bytes(20)}};
        for (const char* tag : {"006", "006", "007", "007", "007"}) {
            if (random() % 2 == 0) fields.emplace_back(tag, bytes(random() % 25));
        }
        fields.emplace_back("008", bytes(random() % 3 == 0 ? random() % 50 : 40));
        if (isGlobe) {
            fields.back().second.resize(40, 'b');
            fields.back().second[23] = "abc"[random() % 3];
            fields.emplace_back("007", "d" + bytes(5));
        }
        for (const bool strict : {false, true}) {
            SCOPED_TRACE("round " + std::to_string(round) + (strict ? ", strict" : ""));
            Fields once = fields;
            Repaired(leader, once, {strict});
            const std::string leaderOnce = leader_;
            EXPECT_EQ(leaderOnce.substr(0, 5), leader.substr(0, 5));
            EXPECT_EQ(leaderOnce.substr(12, 5), leader.substr(12, 5));
            ASSERT_EQ(once.size(), fields.size());
            EXPECT_EQ(once[0], fields[0]);
            EXPECT_EQ(once[1], fields[1]);
            Fields twice = once;
            const std::string said = Repaired(leaderOnce, twice, {strict});
            ASSERT_EQ(twice, once) << said;
            ASSERT_EQ(leader_, leaderOnce);
        }
    }
}

}  // namespace
}  // namespace quillory
