#include <quillory/coded/Material.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/repair/RecordRepairer.h>
#include <zorby/record/CommFormat.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <set>
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
    std::string Repaired(const std::string& leader, Fields& fields,
                         const RepairOptions& options = {}) {
        RecordRepairer repairer(Lists(), options);
        return Repaired(repairer, leader, fields);
    }

    std::string Repaired(RecordRepairer& repairer, const std::string& leader, Fields& fields) {
        TestRecord test({"LDR" + leader});
        for (const auto& [tag, content] : fields) test.Add(tag + content);
        std::string said;
        for (const Repair& repair : repairer.PutRight(test.record)) said += Line(repair);
        leader_ = test.record.leader;
        Fields after;
        for (const auto& field : test.record.fields) after.emplace_back(field.tag, field.content);
        fields = after;
        return said;
    }

    std::string Repaired008(const std::string& field008, const RepairOptions& options = {},
                            const std::string& leader = kLeader) {
        Fields fields = {{"008", field008}};
        said_ = Repaired(leader, fields, options);
        return fields[0].second;
    }

    static std::string Line(const Repair& repair) {
        const std::string source(repair.source);
        const std::string line = std::string(NameOf(repair.repairClass)) +
                                 (repair.kind == RepairKind::Left ? ", left " : " ") +
                                 PlaceText(repair.place) + ": ";
        if (repair.fault != FaultCode{}) return line + FaultReason(FaultOf(repair)) + "\n";
        return line + repair.before + " -> " + repair.after +
               (source.empty() ? "" : " by " + source) + "\n";
    }

    std::string leader_;
    std::string said_;
};

std::string With(std::string field, std::size_t position, const std::string& bytes) {
    return field.replace(position, bytes.size(), bytes);
}

// One value in the 008 of a book in English, and other fields beside it.
struct ValueCase {
    std::size_t position;
    std::string got, repaired, said;
    std::vector<std::pair<std::string, std::string>> others = {};
};

class ValueTest : public RecordRepairerTest {
protected:
    void Check(const ValueCase& c) {
        SCOPED_TRACE(c.got + " at " + std::to_string(c.position));
        const std::string book = With(With(kBook, 15, "ne "), 35, "eng");
        Fields fields = c.others;
        fields.emplace_back("008", With(book, c.position, c.got));
        const std::string said = Repaired(kLeader, fields);
        EXPECT_EQ(fields.back().second, With(book, c.position, c.repaired));
        EXPECT_EQ(said, c.said);
    }
};

TEST_F(ValueTest, StaysIfTheFormatEverHadIt) {
    const std::pair<std::size_t, std::string> kept[] = {
        {35, "hrv"}, {35, "eng"}, {15, "|||"},
        {23, "q"},   {23, "g"},   {32, "1"},  // main entry in body of entry, until 1990
        {33, " "},   {35, "cam"}, {15, "us "},
        {15, "hk "}, {7, "199u"}, {18, "ab  "},
    };
    for (const auto& [position, value] : kept) Check({position, value, value, ""});
}

TEST_F(ValueTest, SaysNothingThatTheRecordDidNotSay) {
    const ValueCase cases[] = {
        {23, "?", "|", "not-coded 008/23: ? -> |\n"},
        {29, " ", "|",
         "not-coded 008/29: "
         "  -> |\n"},
        {31, "-", "|", "not-coded 008/31: - -> |\n"},
        {33, "9", "|", "unknown-value 008/33: 9 -> |\n"},
        {18, "a9bq", "a|b|", "unknown-value 008/18-21: a9bq -> a|b|\n"},
        {18, "----", "||||", "not-coded 008/18-21: ---- -> ||||\n"},
        {7, "19x5", "19u5", "obsolete-form 008/07-10: 19x5 -> 19u5\n"},
        {7, "19--", "19uu", "obsolete-form 008/07-10: 19-- -> 19uu\n"},
        {7, "c199", "c199",
         "unknown-value, left 008/07-10: \"c199\" is not a value of the format, and nothing says "
         "what is meant\n"},
        {35, "ng ", "ng ",
         "unknown-value, left 008/35-37: \"ng#\" is not a value of the format, and nothing says "
         "what is meant\n"},
        {0, "      ", "      ",
         "not-coded, left 008/00-05: \"######\" is not a value of the format, and nothing says "
         "what is meant\n"},
        {32, "x", " ", "undefined 008/32: x ->  \n"},
    };
    for (const ValueCase& c : cases) Check(c);
}

TEST_F(ValueTest, OfACountryOrLanguageIsCertain) {
    const ValueCase cases[] = {
        {35, "ENG", "eng", "case 008/35-37: ENG -> eng\n"},
        {35, "fra", "fre", "national-code 008/35-37: fra -> fre by ISO 639-2/T\n"},
        {35, "DEU", "ger", "national-code 008/35-37: DEU -> ger by ISO 639-2/T\n"},
        {35, "???", "und", "not-coded 008/35-37: ??? -> und\n"},
        {35, "???", "|||", "not-coded 008/35-37: ??? -> |||\n", {{"546", "  \037aIn English"}}},
        {35,
         "xyz",
         "spa",
         "from-record 008/35-37: xyz -> spa by 041 $a\n",
         {{"041", "0 \037aspaeng"}}},
        {15, "PL ", "pl ", "case 008/15-17: PL  -> pl \n"},
        {15, "aut", "au ", "national-code 008/15-17: aut -> au  by ISO 3166-1\n"},
        {15, "USA", "xxu", "national-code 008/15-17: USA -> xxu by ISO 3166-1\n"},
        {15, "gr ", "gr ", ""},
        {15, "CH ", "CH ",
         "case, left 008/15-17: \"CH#\" in small letters is one country, and another one in ISO "
         "3166-1\n"},
        {15, "CH ", "sz ", "from-record 008/15-17: CH  -> sz  by 044 $a\n", {{"044", "  \037asz"}}},
        {15, "de ", "de ",
         "national-code, left 008/15-17: \"de#\" is a code of ISO 3166-1, or one of three letters "
         "without its end\n"},
        {15, "ger", "ger",
         "unknown-value, left 008/15-17: \"ger\" is not a value of the format, and nothing says "
         "what is meant\n"},
        {15, "   ", "xx ", "not-coded 008/15-17:     -> xx \n"},
        {15, "   ", "|||", "not-coded 008/15-17:     -> |||\n", {{"264", " 1\037aParis :"}}},
        {23, "?", "o", "from-record 008/23: ? -> o by 338 $b\n", {{"338", "  \037bcr"}}},
    };
    for (const ValueCase& c : cases) Check(c);
    // Nobody writes German in Delaware.
    EXPECT_EQ(Repaired008(With(With(kBook, 15, "de "), 35, "ger")),
              With(With(kBook, 15, "gw "), 35, "ger"));
    EXPECT_EQ(Repaired008(With(With(kBook, 15, "de "), 35, "DEU")),
              With(With(kBook, 15, "gw "), 35, "ger"));
}

TEST_F(ValueTest, IsThatOfASerialByTheRepairedLeader) {
    const std::string serial = "980930c19809999nyumr p       0   a0eng d";
    EXPECT_EQ(Repaired008(serial, {}, "00000naS a2200000 i 4500"), serial);
    EXPECT_EQ(said_, "case leader/07: S -> s\n");
    const RepairOptions noCase{.classes = {.skip = {RepairClass::Case}}};
    EXPECT_NE(Repaired008(serial, noCase, "00000naS a2200000 i 4500"), serial);
}

TEST_F(ValueTest, IsTheLibrarysWithStrict) {
    const std::string book = With(With(kBook, 15, "ne "), 35, "eng");
    const ValueCase cases[] = {
        {35, "hrv", "und", ""},   {15, "|||", "xx ", ""},  {23, "q", " ", ""},
        {18, "a9bq", "    ", ""}, {7, "19x5", "19u5", ""}, {32, "1", " ", ""},
    };
    for (const ValueCase& c : cases) {
        EXPECT_EQ(Repaired008(With(book, c.position, c.got), {.strict = true}),
                  With(book, c.position, c.repaired))
            << c.got;
        EXPECT_TRUE(said_.starts_with("library 008/")) << said_;
    }
}

TEST_F(RecordRepairerTest, OnlyOfTheClassesThatAreWanted) {
    const std::string faulty = With(With(kBook, 23, "?"), 35, "ENG") + "  ";
    const RepairOptions onlyCase{.classes = {.only = {RepairClass::Case}}};
    EXPECT_EQ(Repaired008(faulty, onlyCase), With(With(kBook, 23, "?"), 35, "eng") + "  ");
    EXPECT_EQ(said_, "case 008/35-37: ENG -> eng\n");
    const RepairOptions noLength{.classes = {.skip = {RepairClass::Length}}};
    EXPECT_EQ(Repaired008(faulty, noLength), With(With(kBook, 23, "|"), 35, "eng") + "  ");
}

TEST_F(RecordRepairerTest, LeaderButNotWhatIsTheFilesOwn) {
    struct Case {
        std::string got, repaired, strict;
    };
    const Case cases[] = {
        {"99999nam a2299999 i 4500", "99999nam a2299999 i 4500", "99999nam a2299999 i 4500"},
        {"xxxxx?az?x33yyyyy?.?9999", "xxxxx?az? 22yyyyyuu?4500", "xxxxxnam  22yyyyy i 4500"},
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
    EXPECT_EQ(Repaired("00000nam 02200000 i 4500", fields), "character-set leader/09: 0 -> a\n");
    fields[0].second = "10\037aSch\350one";
    EXPECT_EQ(Repaired("00000nam 02200000 i 4500", fields), "character-set leader/09: 0 ->  \n");
}

TEST_F(RecordRepairerTest, GivesFieldsTheLengthOfTheFormat) {
    EXPECT_EQ(Repaired008(kBook.substr(0, 38)), kBook.substr(0, 38) + "||");
    EXPECT_EQ(said_, "length 008: 38 bytes, the format has 40; filled up as not coded\n");
    EXPECT_EQ(Repaired008(kBook + " |"), kBook);
    EXPECT_EQ(said_, "length 008: 42 bytes, the format has 40; cut\n");

    Fields fields = {{"006", "m"}, {"007", "co"}, {"007", "ta   "}, {"008", kBook}};
    Repaired(kLeader, fields);
    EXPECT_EQ(fields[0].second, "m    ||  | |      ");
    EXPECT_EQ(fields[1].second, "co |||||||||||");
    EXPECT_EQ(fields[2].second, "ta");
}

TEST_F(RecordRepairerTest, LeavesAn008WhoseBytesHaveNoPlace) {
    const struct {
        std::string field008, why;
    } cases[] = {
        {"", "0 bytes, the format has 40; too short to tell which byte is which"},
        {kBook.substr(0, 37), "37 bytes, the format has 40; too short to tell which byte is which"},
        // A byte too many in the middle moves the language.
        {" " + kBook,
         "41 bytes, the format has 40, and country and language are not in their places"},
        {kBook.substr(0, 35) + "beng  ",
         "41 bytes, the format has 40, and country and language are not in their places"},
        {kBook + "xy", "42 bytes, more than the format has, and they say something"},
        {"spa|  z927 x   955                 Sir  ",
         "neither date, country nor language are in their places"},
        // A byte was lost before the language, and another one came after it.
        {kBook.substr(0, 20) + kBook.substr(21) + "u",
         "the language, and what is before it, stand a byte beside their places"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Repaired008(c.field008), c.field008);
        EXPECT_EQ(said_, "length, left 008: " + c.why + "\n");
        EXPECT_EQ(Repaired008(c.field008, {.strict = true}).size(), 40U) << c.field008;
    }
    // The one that is whole counts.
    Fields fields = {{"008", kBook.substr(0, 20)}, {"008", With(kBook, 23, "?")}};
    EXPECT_EQ(Repaired(kLeader, fields),
              "repeated, left 008: a record has one 008\nnot-coded 008[2]/23: ? -> |\n");
    EXPECT_EQ(fields[0].second, kBook.substr(0, 20));
}

TEST_F(RecordRepairerTest, TheLibraryTakesNoProjectionForAFormOfItem) {
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
        {"e", {{"007", "aj?c?nz?"}}, {"aj c|nz|"}},
        {"g", {{"007", "vf ?ba?o?"}}, {"vf |ba|o|"}},
        // A disc that comes with a book: the 006 tells of the 007.
        {"a",
         {{"006", "m?    o  i ?      "}, {"007", "co ?ga---?????"}},
         {"m     o  i |      ", "co |ga---|||||"}},
        // A microform of a book that is none.
        {"a", {{"007", "hd ?fa???bac?"}}, {"hd |fa---bac|"}},
        {"a", {{"007", "f?|a?  ?uu"}}, {"f||a|| |uu"}},
        // A date that was not coded in part has no unknown digits.
        {"g",
         {{"007", "mr cf|||||||||||||||---"}, {"007", "mr cf||||||||||||2001??"}},
         {"mr cf||||||||||||||||||", "mr cf||||||||||||2001--"}},
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
         "unknown-value, left : leader/06 is not a type of record, so the material is unknown\n"},
        {"",
         {{"008", any}},
         "unknown-value, left : leader/06 is not a type of record, so the material is unknown\n"},
        {kLeader,
         {{"006", ""}, {"006", "?"}, {"007", "?x"}, {"008", kBook}, {"008", any}},
         "unknown-value, left 006: its first byte is not a type of record or a category\n"
         "unknown-value, left 006[2]: its first byte is not a type of record or a category\n"
         "unknown-value, left 007: its first byte is not a type of record or a category\n"
         "repeated, left 008[2]: a record has one 008\n"},
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

// Every value that the format has or had, in its place: of several codes, each in each place.
class EveryValueTest : public RecordRepairerTest {
protected:
    // With each value of each element of a form put into a field.
    template <class Use>
    void ForEachValue(CFType form, const std::string& field, int offset, Use use) {
        for (const Element& element : ElementsOf(form)) {
            const int first = element.first + offset;
            const bool isBefore = form == CFLdr && (element.first < 5 || element.first == 12);
            if (isBefore || (element.first == 0 && form != CF008Standard)) continue;
            const auto length = static_cast<std::size_t>(Lists().CodeLengthOf(element));
            for (const CodeMeaning& code : Lists().CodesOf(element)) {
                for (std::size_t i = 0; i + code.code.size() <= WidthOf(element); i += length) {
                    use(With(field, static_cast<std::size_t>(first) + i, code.code));
                    ++values_;
                }
            }
        }
    }
    static std::size_t WidthOf(const Element& element) {
        return static_cast<std::size_t>(element.Width());
    }
    void ExpectKept(const std::string& leader, Fields fields) {
        const Fields given = fields;
        EXPECT_EQ(Repaired(leader, fields), "") << leader;
        EXPECT_EQ(fields, given);
        EXPECT_EQ(leader_, leader);
    }

    int values_ = 0;
};

TEST_F(EveryValueTest, OfTheLeaderStays) {
    ForEachValue(CFLdr, kLeader, 0, [&](const std::string& leader) {
        // h and n were types of record whose coded fields are not known any more.
        const bool isKnown = MaterialOfLeader(leader) != CF006None && IsBibliographic(leader);
        if (isKnown) ExpectKept(leader, {});
    });
    EXPECT_GT(values_, 50);
}

TEST_F(EveryValueTest, Of008StaysForAnyMaterial) {
    const std::string general = "261121s2026    xx |||||||||||||||||eng||";
    for (const char type : std::string("abcdefgijkmoprt")) {
        for (const char level : std::string("ms")) {
            const std::string leader = With(With(kLeader, 6, {type}), 7, {level});
            const auto expectKept = [&](const std::string& field) {
                ExpectKept(leader, {{"008", field}});
            };
            ForEachValue(MaterialOfLeader(leader), general, kMaterialOffset008, expectKept);
            if (level == 'm' && type == 'a') ForEachValue(CF008Standard, general, 0, expectKept);
        }
    }
    EXPECT_GT(values_, 4000);
}

TEST_F(EveryValueTest, Of006And007Stays) {
    const auto check = [&](const char* tag, CFType form) {
        std::string field(static_cast<std::size_t>(LengthOfForm(form)), kFill);
        field[0] = FormLetters(form).front();
        ForEachValue(form, field, 0, [&](const std::string& value) {
            ExpectKept(kLeader, {{tag, value}});
        });
    };
    for (const CFType form : FormsOf006()) check("006", form);
    for (const CFType form : FormsOf007()) check("007", form);
    EXPECT_GT(values_, 1500);
}

// What the lists once lacked.
TEST_F(EveryValueTest, ThatIsNewOrGivenUpIsInTheLists) {
    const struct {
        CFType form;
        int first;
        std::string codes;
    } cases[] = {
        {CF006Continuing, 4, "ghjrst"},  {CF006Continuing, 3, "3567890u"},
        {CF006Continuing, 13, "abuz01"}, {CF006Books, 15, "01"},
        {CF006MusicSound, 15, "01"},     {CF006Visual, 6, "lmoqprsz"},
        {CF006ComputerFile, 1, "awrx"},  {CF006Map, 7, "efgpwz"},
        {CF007Sound, 2, "foru"},         {CF007Microform, 2, "foru"},
        {CF007MotionPicture, 2, "foru"}, {CF006Mixed, 7, "abcdefu"},
    };
    for (const auto& c : cases) {
        for (const Element& element : ElementsOf(c.form)) {
            if (element.first != c.first) continue;
            for (const char code : c.codes) {
                EXPECT_NE(Lists().StateOf(element, {&code, 1}), CodeState::Unknown)
                    << c.form << '/' << c.first << ' ' << code;
            }
        }
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

TEST(ElementRun, HasANumberOfItsOwn) {
    std::set<int> numbers{0};
    const auto take = [&](CFType form, CFType material) {
        for (const ElementRun& run : LayoutOf(form, material).runs) {
            EXPECT_TRUE(numbers.insert(run.number).second) << form << " at " << run.first;
        }
    };
    take(CFLdr, CF006None);
    for (const CFType form : FormsOf007()) take(form, CF006None);
    for (const CFType form : FormsOf006()) {
        take(form, CF006None);
        take(CF008Standard, form);
    }
}

// The same bytes come again and again, but other fields may have a say in what becomes of them.
TEST_F(RecordRepairerTest, OfARecordHasNothingOfThoseBefore) {
    const std::string values[] = {With(kBook, 15, "   "), With(kBook, 15, "CH "),
                                  With(kBook, 23, "?"), With(kBook, 35, "   "),
                                  With(kBook, 29, "9")};
    const Fields others = {{"260", "  \037aZagreb"},    {"044", "  \037asz"},  {"338", "  \037bcr"},
                           {"041", "0 \037aspa"},       {"007", "ta"},         {"007", "t?"},
                           {"006", "a9  j      000 1"}, {"245", "00\037aÜber"}};
    RecordRepairer repairer(Lists(), {});
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        const std::string leader = With(kLeader, 9, std::string(1, "a x"[random() % 3]));
        Fields fields = {{"008", values[random() % std::size(values)]}};
        for (const auto& other : others) {
            if (random() % 3 == 0) fields.push_back(other);
        }
        SCOPED_TRACE("round " + std::to_string(round));
        Fields alone = fields;
        const std::string said = Repaired(leader, alone);
        const std::string leaderAlone = leader_;
        ASSERT_EQ(Repaired(repairer, leader, fields), said);
        ASSERT_EQ(fields, alone);
        ASSERT_EQ(leader_, leaderAlone);
    }
}

// Whatever the bytes: a repair leaves nothing to repair, and nothing but coded fields changed.
TEST_F(RecordRepairerTest, OfAnyBytesIsDoneAtOnce) {
    std::mt19937 random(26);
    const auto bytes = [&](std::size_t size) {
        std::string text(size, ' ');
        for (char& byte : text) {
            byte = random() % 4 == 0 ? static_cast<char>(random())
                                     : "abcdefhijmnopqrsuvxzBS |0129-"[random() % 29];
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
            Repaired(leader, once, {.strict = strict});
            const std::string leaderOnce = leader_;
            EXPECT_EQ(leaderOnce.substr(0, 5), leader.substr(0, 5));
            EXPECT_EQ(leaderOnce.substr(12, 5), leader.substr(12, 5));
            ASSERT_EQ(once.size(), fields.size());
            EXPECT_EQ(once[0], fields[0]);
            EXPECT_EQ(once[1], fields[1]);
            Fields twice = once;
            const std::string said = Repaired(leaderOnce, twice, {.strict = strict});
            ASSERT_EQ(twice, once) << said;
            ASSERT_EQ(leader_, leaderOnce);
        }
    }
}

}  // namespace
}  // namespace quillory
