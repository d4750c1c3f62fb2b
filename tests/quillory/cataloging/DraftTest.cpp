#include <quillory/cataloging/Draft.h>
#include <quillory/exchange/Mrk.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/platform/ApplicationPort.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace quillory {
namespace {

using namespace zorby;

using Sets = std::vector<std::pair<const char*, const char*>>;

class Drafts : public testing::Test {
protected:
    static void SetUpTestSuite() {
        FixedApplication application(DATA_FOLDER, '/', false);
        SetApplicationPort(&application);
        ASSERT_NE(CMARCFormat::InitializeYourself(""), 0);
        SetApplicationPort(nullptr);
    }

    Drafts() : pattern_(MakePattern()) {}

    // A workform with each kind of field. Its deleter leaves it to the test.
    TemplateHolder MakePattern() {
        workform_.ControlFieldsSetMain(MTBook, CF006Books, CF007Microform,
                                       "00000nam##2200000#i#4500", "", "#############",
                                       "000000s########xx############000#u#und#d", "");
        workform_.AddFld(20, "__", "aq", "", "");
        workform_.AddFld(100, "1_", "ae", "", "");
        workform_.AddFld(245, "10", "anpbc", "", "");
        workform_.AddFld(264, "_1", "abc", "", "");
        workform_.AddFld(264, "_4", "c", "", "");
        workform_.AddDefaultData(336, '_', '_', 'a', "text");
        workform_.AddDefaultData('2', "rdacontent");
        workform_.AddFld(650, "_0", "axzv", "", "");
        workform_.AddDefaultData(650, '_', '0', 'a', "Large type books.");
        workform_.AddDefaultData(655, '_', '7', 'a', "");
        workform_.AddDefaultData('2', "lcgft");
        workform_.AddDefaultData(776, '0', '8', 'i', "Print version:");
        workform_.AddDefaultData('t', "");
        return TemplateHolder(&workform_);
    }

    std::string Made(const Sets& sets) {
        std::tm day{};
        day.tm_year = 126;
        day.tm_mon = 1;
        day.tm_mday = 3;
        Draft draft(pattern_, day);
        for (const auto& [place, text] : sets) draft.Take(ReadEntry(place, text));
        std::string mrk;
        AppendMrk(draft.Finish(), mrk);
        return mrk;
    }

    // The lines of a tag, "|" between them.
    std::string Lines(unsigned tag, const Sets& sets) {
        std::string lines;
        std::string mrk = Made(sets);
        const std::string begin =
            "=" + std::string(tag < 100 ? "0" : "") + std::to_string(tag) + "  ";
        for (std::size_t at = 0; (at = mrk.find(begin, at)) != mrk.npos; ++at) {
            const std::size_t text = at + begin.size();
            lines += (lines.empty() ? "" : "|") + mrk.substr(text, mrk.find('\n', at) - text);
        }
        return lines;
    }

    CTemplate workform_;
    Pattern pattern_;
};

TEST_F(Drafts, AFreshOneIsWhatTheWorkformSaysByItself) {
    EXPECT_EQ(Made({}),
              "=LDR  00000nam\\a2200000\\i\\4500\n"
              "=008  260203s\\\\\\\\\\\\\\\\xx\\\\\\\\\\\\\\\\\\\\\\\\000\\u\\und\\d\n"
              "=336  \\\\$atext$2rdacontent\n=650  \\0$aLarge type books.\n\n");
}

TEST_F(Drafts, SubfieldsFindTheirFields) {
    const std::vector<std::tuple<unsigned, Sets, std::string>> cases{
        // In the workform's order, whatever the order in which they come.
        {245, {{"245c", "C"}, {"245b", "B"}, {"245a", "A"}}, "00$aA$bB$cC"},
        // One that the workform does not know stays where it was said.
        {245, {{"245a", "A"}, {"245h", "H"}, {"245b", "B"}}, "00$aA$hH$bB"},
        {245, {{"245a", "A"}, {"100a", "N"}}, "10$aA"},
        {245, {{"245", "12$cC$aA"}, {"100a", "N"}}, "12$cC$aA"},
        // Repeatable subfields repeat, others begin another field like the workform's.
        {264, {{"264a", "A"}, {"264a", "B"}}, "\\1$aA$aB"},
        {264,
         {{"264a", "A"}, {"264b", "B"}, {"264a", "C"}, {"264c", "9"}, {"264b", "D"}},
         "\\1$aA$bB$aC$c9$bD"},
        {264, {{"264c", "1999"}, {"264[2]c", "1998"}}, "\\1$c1999|\\4$c1998"},
        {20, {{"020a", "1"}, {"020q", "x"}, {"020a", "2"}}, "\\\\$a1$qx|\\\\$a2"},
        {655, {{"655a", "A"}, {"655a", "B"}}, "\\7$aA$2lcgft|\\7$aB$2lcgft"},
        // Only the first replaces a text of the workform, and only where nothing waits.
        {650,
         {{"650a", "A"}, {"650x", "X"}, {"650a", "B"}},
         "\\0$aA$xX|\\0$aLarge type books.|\\0$aB"},
        {336, {{"336a", "still image"}}, "\\\\$astill image$2rdacontent"},
        {336, {{"336a", ""}, {"3362", ""}}, ""},
        {650, {{"650[2]a", ""}}, ""},
        // What nobody has filled is no field.
        {655, {{"655a", ""}}, ""},
        {655, {{"655", ""}}, ""},
        {776, {{"776i", "In:"}, {"776t", ""}}, "08$iIn:"},
        {650, {{"650[2]", "_1$aC"}}, "\\1$aC"},
        {776, {{"776t", "T"}}, "08$iPrint version:$tT"},
        // A field of the dictionary.
        {500, {{"500a", "A"}, {"500a", "B"}}, "\\\\$aA|\\\\$aB"},
    };
    for (const auto& [tag, sets, lines] : cases) {
        EXPECT_EQ(Lines(tag, sets), lines) << tag << " " << sets.front().first;
    }
}

TEST_F(Drafts, WhatTheFormatDoesNotAllowIsSaid) {
    const std::vector<std::pair<Sets, std::string>> cases{
        {{{"245a", "A"}, {"245a", "B"}}, "245 $a: a record can have this field only once"},
        {{{"245", "10$aA$aB"}, {"245", "10$aB"}}, "245: a record can have this field only once"},
        {{{"245[2]a", "B"}}, "245[2] $a: a record can have this field only once"},
        {{{"245[1]a", "A"}, {"245[1]a", "B"}}, "245 $a: a field can have $a only once"},
        {{{"245a", "A"}, {"245[1]", "10$aB"}}, "245: the field has been given before"},
        {{{"001", "a"}, {"001", "b"}}, "001: a record can have this field only once"},
        {{{"007[2]", "ta"}}, "007[2]: there are 0 of these fields so far"},
        {{{"500[2]a", "B"}}, "500[2] $a: there are 0 of these fields so far"},
        {{{"008/40", "x"}}, "008/40: the field has 40 characters"},
        {{{"008/38-39", "x"}},
         "008/38-39: \"x\" does not have the width of these positions, which is 2"},
        {{{"007/01", "x"}}, "007/01: the record has no such field; give the whole field first"},
    };
    for (const auto& [sets, reason] : cases) {
        try {
            Made(sets);
            ADD_FAILURE() << reason;
        } catch (const EntryError& error) {
            EXPECT_EQ(error.what(), reason) << sets.back().first;
        }
    }
    for (const char* place : {"leader/00", "leader/09", "leader/08-10", "leader/23"}) {
        EXPECT_THROW(Made({{place, "a"}}), EntryError) << place;
    }
}

TEST_F(Drafts, ControlFields) {
    const auto date = [this](const Sets& sets) {
        const std::string mrk = Made(sets);
        return mrk.substr(mrk.find("=008  ") + 6, 15);
    };
    EXPECT_EQ(date({{"264c", "[2021]"}}), "260203s2021\\\\\\\\");
    EXPECT_EQ(date({{"264c", "[2021?]"}}), "260203s\\\\\\\\\\\\\\\\");
    EXPECT_EQ(date({{"264c", "2021"}, {"008/07-10", "1999"}}), "260203s1999\\\\\\\\");
    EXPECT_EQ(date({{"264c", "2021"}, {"008/06", "m"}}), "260203m\\\\\\\\\\\\\\\\");
    EXPECT_EQ(date({{"264", "_4$c2018"}, {"264", "_1$aL$c2019"}}), "260203s2019\\\\\\\\");
    EXPECT_EQ(Made({{"008", ""}}).find("=008"), std::string::npos);
    const std::string mrk = Made({{"007", "ta"}, {"001", "x"}, {"007", "cr"}, {"007[2]/01", "o"}});
    EXPECT_NE(mrk.find("=001  x\n=007  ta\n=007  co\n=008"), mrk.npos) << mrk;
}

// However it is filled, no field is empty, tags are in order, and every text is there.
TEST_F(Drafts, NothingIsLostOfRandomEntries) {
    std::mt19937 random{11};
    const std::vector<std::string> tags{"020", "100", "264", "500", "505", "650", "655", "700"};
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        Draft draft(pattern_, {});
        std::vector<std::string> taken;
        for (int i = 0; i < 12; ++i) {
            const std::string place =
                tags[random() % tags.size()] + static_cast<char>('a' + random() % 5);
            const std::string text = "<" + std::to_string(i) + ">";
            try {
                draft.Take(ReadEntry(place, text));
                taken.push_back(place.back() + text);
            } catch (const EntryError&) {
                continue;
            }
        }
        std::string mrk;
        const Record record = draft.Finish();
        AppendMrk(record, mrk);
        for (const std::string& text : taken) {
            const std::size_t at = mrk.find("$" + text);
            ASSERT_NE(at, mrk.npos) << mrk;
            EXPECT_EQ(mrk.find("$" + text, at + 1), mrk.npos) << mrk;
        }
        for (std::size_t i = 0; i < record.fields.size(); ++i) {
            const auto& field = record.fields[i];
            EXPECT_FALSE(field.content.empty()) << mrk;
            EXPECT_TRUE(!field.IsDataField() || field.content.size() > 4) << mrk;
            if (i > 0 && field.tag[0] != '5' && field.tag[0] != '6') {
                EXPECT_LE(record.fields[i - 1].tag, field.tag) << mrk;
            }
        }
    }
}

TEST_F(Drafts, GapsAreWhatHasNoText) {
    Draft draft(pattern_, {});
    draft.Take(ReadEntry("245a", "A"));
    draft.Take(ReadEntry("264[2]c", "1999"));
    std::string gaps;
    for (const Place& gap : draft.Gaps()) gaps += PlaceText(gap) + "; ";
    EXPECT_EQ(gaps,
              "020 $a; 020 $q; 100 $a; 100 $e; 245 $n; 245 $p; 245 $b; 245 $c; 264 $a; 264 $b; "
              "264 $c; 650 $a; 650 $x; 650 $z; 650 $v; 655 $a; 776 $t; ");
}

}  // namespace
}  // namespace quillory
