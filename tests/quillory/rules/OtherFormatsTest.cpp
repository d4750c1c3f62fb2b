#include <quillory/rules/OtherFormats.h>
#include <quillory/rules/Unimarc.h>

#include <gtest/gtest.h>

#include <tests/quillory/Records.h>

namespace quillory {
namespace {

const std::string kAuthority008 = "008990101nn acannaabn           a aaa      ";

// Records with which nothing is wrong, with "$" for the delimiter.
const Lines kAuthority{
    "LDR00000cz  a2200000n  4500",
    "001n1",
    "00520210101101010.0",
    kAuthority008,
    "010  $an  50043095 $zn  50043096",
    "040  $aDLC$beng$erda$cDLC$dDLC",
    "1001 $aTwain, Mark,$d1835-1910.$tRoughing it.$lFrench$vConcordances",
    "374  $aAuthors$2lcsh",
    "4001 $wnna$aClemens, Samuel Langhorne",
    "430 4$aThe innocents",
    "551  $aHannibal (Mo.)$0(DLC)n  1$wr$iPlace of youth:",
    "670  $aHis Roughing it, 1872:$bt.p. (Mark Twain)$uhttps://example.org/a",
    "780 0$xHistory",
    "913  $zOf a system",
};
const Lines kHoldings{
    "LDR00000ny  a22000001i 4500",
    "001h1",
    "004b1",
    "0089901014u    8   0001uu   0990101",
    "852 1$aDLC$bMain$hPS1318$i.A1$zAsk$9x",
    "85303$81$av.$bno.$i(year)$j(month)",
    "863 0$81.1$a1$b2$i1999$j01",
    "866 0$81$av.1-",
};
const Lines kClassification{
    "LDR00000nw  a2200000n  4500",
    "001c1",
    "008990101aaaaaaba",
    "040  $aDLC$cDLC",
    "0840 $aslcc",
    "153  $aPS1$cPS9$hAmerican literature$jGeneral",
    "753 0$aAuthors",
};
const Lines kCommunity{
    "LDR00000nqo a2200000   4500",
    "001q1",
    "008990101nnnnnneng",
    "1102 $aChess Club",
    "245 0$aChess Club",
    "270 0$aHigh Street 1$bOxford",
    "85640$uhttps://example.org/chess",
};

class OtherFormatsTest : public testing::Test {
protected:
    static std::vector<Remark> RemarksOn(OtherFormats& formats, const Lines& lines) {
        const TestRecord test(lines, '$');
        const MarcFormat format = MarcFormatOf(test.record.leader);
        formats.RecordOf(format).Take(test.record);
        std::vector<Remark> remarks;
        const RuleWeights weights;
        RemarkSink sink(weights, remarks);
        formats.Check(format, sink);
        return remarks;
    }

    // As "undefined 245; ...".
    static std::string Found(OtherFormats& formats, const Lines& lines) {
        std::string text;
        for (const Remark& remark : RemarksOn(formats, lines)) {
            text += (text.empty() ? "" : "; ") + std::string(remark.rule->name);
            const std::string place = PlaceText(remark.place);
            if (!place.empty()) text += " " + place;
        }
        return text;
    }

    // A record without the fields of some tags, which blanks divide, and with others.
    static Lines Changed(Lines lines, const std::string& without, const Lines& with) {
        std::erase_if(lines, [&without](const std::string& line) {
            return without.find(line.substr(0, 3)) != without.npos;
        });
        lines.insert(lines.end(), with.begin(), with.end());
        return lines;
    }
};

TEST_F(OtherFormatsTest, EachFormatHasRulesOfItsOwn) {
    const struct {
        const Lines* sound;
        const char* without;
        Lines with;
        const char* found;
    } kCases[] = {
        {&kAuthority, "", {}, ""},
        {&kAuthority, "", {"24510$aTitle"}, "undefined 245"},
        {&kAuthority, "", {"650 0$aWhales"}, "undefined 650"},
        {&kAuthority, "", {"4001 $aX$0y", "5001 $aX$0y"}, "undefined 400[2] $0"},
        {&kAuthority, "", {"5001 $aX$aY"}, "not-repeatable 500 $a"},
        {&kAuthority, "", {"5002 $aX"}, "indicator-obsolete 500/1"},
        {&kAuthority, "", {"551 2$aX"}, "indicator-obsolete 551[2]/2"},
        {&kAuthority,
         "",
         {"55180$aX"},
         "indicator-undefined 551[2]/1; indicator-obsolete 551[2]/2"},
        {&kAuthority, "", {"7500 $aX"}, "indicator-undefined 750/1; indicator-undefined 750/2"},
        {&kAuthority, "", {"750 7$aX", "750 7$aX$2fast"}, "source-missing 750/2"},
        {&kAuthority, "", {"668  $aX"}, "field-obsolete 668"},
        {&kAuthority, "", {"4510 $aX$bY"}, "indicator-undefined 451/1; subfield-obsolete 451 $b"},
        {&kAuthority, "", {"670  $aX$b"}, "subfield-empty 670[2] $b"},
        {&kAuthority, "", {"010  $aX"}, "not-repeatable 010[2]"},
        {&kAuthority, "001 008 040", {}, "no-001 001; no-008 008; no-040 040"},
        {&kAuthority, "100", {}, "heading-count"},
        {&kAuthority, "100", {"199  $aLocal"}, "heading-count"},
        {&kAuthority, "", {"150  $aX"}, "heading-count 150"},
        {&kAuthority, "", {"1001 $aX"}, "not-repeatable 100[2]"},
        {&kAuthority, "", {"670  $aX$uexample.org"}, ""},
        {&kAuthority, "", {"8564 $uexample.org"}, "url-malformed 856 $u"},
        {&kAuthority, "", {"020  $a0596000279"}, "isbn-invalid 020 $a"},
        {&kAuthority, "", {"8801 $6400-01/(N$aX"}, "link-without-partner 880 $6"},
        {&kAuthority, "400", {"4001 $6880-01$aX", "8801 $6400-01/(N$aX$wnna"}, ""},
        {&kAuthority,
         "LDR",
         {"LDR00000xz ax2200000ni 4500"},
         "position-undefined leader/08; code-unknown leader/09"},
        {&kAuthority,
         "LDR",
         {"LDR00000pz  a2200000   4500"},
         "code-unknown leader/05; code-unknown leader/17"},
        {&kAuthority, "008", {"008990101"}, "field-length 008"},
        {&kAuthority, "008", {"008990231" + kAuthority008.substr(9)}, "date-malformed 008/00-05"},
        {&kAuthority,
         "008",
         {"008990101|| aca|| abu   x       a|a|a     b"},
         "code-obsolete 008/14; code-unknown 008/17; position-undefined 008/21; code-obsolete "
         "008/39"},
        {&kAuthority, "005", {"0052021"}, "date-malformed 005"},
        {&kHoldings, "", {}, ""},
        {&kHoldings,
         "",
         {"8539 $av."},
         "indicator-undefined 853[2]/1; indicator-undefined 853[2]/2"},
        {&kHoldings, "", {"100  $aX"}, "undefined 100"},
        {&kHoldings, "", {"852  $hA$hB$7x"}, "not-repeatable 852[2] $h"},
        {&kHoldings,
         "008",
         {"008990101"
          "9u    8   0001uu   0990101"},
         "code-unknown 008/06"},
        {&kHoldings,
         "LDR",
         {"LDR00000cy  a22000007  4500"},
         "code-unknown leader/17; code-obsolete leader/18"},
        {&kHoldings, "040", {"561  $aX$bY"}, "subfield-obsolete 561 $b"},
        {&kClassification, "", {"750 0$aWhales$3x"}, ""},
        {&kClassification, "040", {"7609 $xA"}, "undefined 760; no-040 040"},
        {&kClassification, "008", {"008990101daaaaaba"}, "code-unknown 008/06"},
        {&kCommunity, "", {"570  $aX", "4510 $aX"}, "undefined 451"},
        {&kCommunity, "", {"004199901"}, "field-obsolete 004"},
        {&kCommunity, "008", {"008990101nnnnnxeng"}, "code-unknown 008/11"},
    };
    OtherFormats formats(true);
    for (const auto& row : kCases) {
        std::string name = row.sound->front() + " " + row.without;
        for (const std::string& line : row.with) name += " " + line;
        EXPECT_EQ(Found(formats, Changed(*row.sound, row.without, row.with)), row.found) << name;
    }
}

TEST_F(OtherFormatsTest, SaysWhat008HasInTheFormat) {
    const struct {
        const Lines* sound;
        const char* has;
    } kCases[] = {
        {&kAuthority, "40 positions"},
        {&kClassification, "14 positions"},
        {&kCommunity, "15 positions"},
        {&kHoldings, "32 positions"},
    };
    OtherFormats formats(true);
    for (const auto& row : kCases) {
        const auto remarks = RemarksOn(formats, Changed(*row.sound, "008", {}));
        ASSERT_EQ(remarks.size(), 1U) << row.has;
        EXPECT_EQ(RemarkLine(remarks.front()),
                  std::string("008: error: the record lacks field 008: give its ") + row.has +
                      " [no-008]");
    }
}

TEST_F(OtherFormatsTest, WhatIsLeftToLibrariesIsUndefinedIfAsked) {
    OtherFormats formats(false);
    EXPECT_EQ(Found(formats, kAuthority), "undefined 913");
    EXPECT_EQ(Found(formats, kHoldings), "undefined 852 $9");
}

TEST(Unimarc, IsNothingThatMarc21Allows) {
    const std::string coded = "100  $a20010115d1998    m  y0frey50      ba";
    const struct {
        Lines lines;
        bool isUnimarc;
    } kCases[] = {
        {{coded, "2001 $aLe fleuve"}, true},
        {{"008", coded}, true},
        {{"LDR00000nx  a2200000   450 ", "100  $a20010115afrey0103    ba0", "200 1$aTwain"}, true},
        {{"2001 $aLe fleuve$fMark Twain", "801 0$aFR$bBN"}, true},
        {{"2001 $aLe fleuve", "801 0$aFR$bBN", "245  $aX"}, false},
        {{"008", "2001 $aLe fleuve", "801 0$aFR$bBN"}, false},
        {{"2001 $aLe fleuve"}, false},
        {{"2001 $bLe fleuve", "801 0$aFR$bBN"}, false},
        {{"1000 $a20010115d1998    m"}, false},
        {{"1001 $aTwain, Mark"}, false},
        {{"100  $a20010115"}, false},
        {{"100  $aTwain, Mark, 1835-1910"}, false},
        {{}, false},
    };
    const FieldRules rules(std::vector<FieldRule>(kTags), false);
    RecordInHand record(rules);
    for (const auto& row : kCases) {
        const TestRecord test(row.lines, '$');
        record.Take(test.record);
        std::string name;
        for (const std::string& line : row.lines) name += line + "; ";
        EXPECT_EQ(IsUnimarc(record), row.isUnimarc) << name;
    }
}

}  // namespace
}  // namespace quillory
