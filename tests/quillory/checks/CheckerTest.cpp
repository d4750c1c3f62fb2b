#include <quillory/checks/Checker.h>
#include <quillory/exchange/Input.h>
#include <zorby/checking/RecordError.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ApplicationPort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/quillory/Records.h>
#include <tests/quillory/checks/DictionariesInForce.h>

namespace quillory {
namespace {

using namespace zorby;
const std::string k008 = "990101s1999    nyua          001 0 eng d";

// A record with which nothing is wrong, with "$" for the delimiter.
const Lines kSound{
    "0011",
    "008" + k008,
    "1001 $aTwain, Mark",
    "24510$aRoughing it /$cby Mark Twain.",
    "260  $aNew York :$bHarper,$c1999.",
    "300  $a304 p. :$bill. ;$c21 cm.",
    "500  $aIncludes index.",
    "650 0$aWest (U.S.)$xHistory.",
    "852  $aMain$h817 TWA",
};

// The sound record, without the fields of some tags (by three digits each), and with others.
TestRecord Changed(const std::string& without, const Lines& with) {
    Lines lines;
    for (const std::string& line : kSound) {
        if (without.find(line.substr(0, 3)) == without.npos) lines.push_back(line);
    }
    lines.insert(lines.end(), with.begin(), with.end());
    return TestRecord(lines, '$');
}

class CheckerTest : public testing::Test {
protected:
    CheckerTest() { PutInForce({kPolicyCustom, {}}); }

    static std::string Found(const Record& record, const CheckerOptions& options = {}) {
        std::vector<Finding> findings;
        Checker(options).Check(record, findings);
        std::string text;
        for (const Finding& finding : findings) {
            if (!text.empty()) text += "; ";
            text += std::to_string(finding.code);
            if (const std::string place = PlaceText(finding.place); !place.empty()) {
                text += " " + place;
            }
        }
        return text;
    }

    static std::string FoundIn(const std::string& without, const Lines& with,
                               const CheckerOptions& options = {}) {
        return Found(Changed(without, with).record, options);
    }

private:
    DictionariesInForce dictionaries_;
};

std::string With008(std::size_t at, const std::string& text) {
    std::string field = k008;
    field.replace(at, text.size(), text);
    return "008" + field;
}

struct Case {
    const char* without;
    Lines with;
    const char* found;
};

TEST_F(CheckerTest, TitleAndMainEntries) {
    const Case kCases[] = {
        {"", {}, ""},
        {"245", {}, "110 245 $a"},
        {"245", {"24500$a  $bRest"}, "110 245 $a"},
        {"245", {"880  $6245-00$aTitle"}, "110 245 $a"},
        {"", {"24500$aTwo"}, "111 245[2] $a; 133 245[2]"},
        {"245", {"24500$aOne$aTwo"}, "111 245 $a; 133 245 $a"},
        {"245", {"24500$aOne$a "}, "133 245 $a"},
        {"", {"110  $aX"}, "124 110"},
        {"100", {"110  $aX", "111  $aX", "130 0$aX"}, "125 111; 125 130"},
        {"100", {"111  $aX", "130 0$aX"}, "126 130"},
        {"100", {"130 0$aX", "130 0$aX"}, "127 130[2]; 133 130[2]"},
        {"100", {"130 0$aX", "240 0$aX", "700 0$aX"}, ""},
    };
    for (const Case& c : kCases) EXPECT_EQ(FoundIn(c.without, c.with), c.found) << c.found;
}

TEST_F(CheckerTest, WhatARecordLacks) {
    const Case kCases[] = {
        {"260", {}, "112 260 $a; 113 260 $b; 114 260 $c"},
        {"260", {"260  $aX", "260  $b $cX"}, "113 260 $b"},
        {"260", {"264 1$aX$bX$cX"}, ""},
        {"260", {"264 1$aX$bX", "264 4$c\302\2511999"}, ""},
        {"260", {"264 0$cX"}, "112 260 $a; 113 260 $b"},
        {"260", {"880 1$6264-01$aX$bX$cX"}, "112 260 $a; 113 260 $b; 114 260 $c"},
        {"300", {}, "115 300 $a; 116 300 $b; 117 300 $c"},
        {"300", {"300  $aX"}, "116 300 $b; 117 300 $c"},
        {"500", {}, "118 500"},
        {"500", {"505  $aX"}, ""},
        {"500", {"490  $aX", "600  $aX"}, "118 500"},
        {"500", {"599  $aX"}, ""},
        {"650", {}, "119 600"},
        {"650", {"690  $aX"}, ""},
        {"852", {}, "123 852"},
        {"852", {"866  $aX"}, ""},
        {"852", {"949  $aX"}, "123 852"},
    };
    for (const Case& c : kCases) EXPECT_EQ(FoundIn(c.without, c.with), c.found) << c.found;
}

TEST_F(CheckerTest, HoldingsOfTheSystemInForce) {
    CGeneral::m_iniUserProfile.SetPrivateProfileValue(
        "Zorby", "ZP_NewHoldings", "EasyOrCustom=Easy\\\\HoldingsType=Dynix\\\\");
    EXPECT_EQ(FoundIn("852", {"949  $aX$?X"}, {kCharsetAuto, false}), "");
    CGeneral::m_iniUserProfile.SetPrivateProfileValue(
        "Zorby", "ZP_NewHoldings",
        "EasyOrCustom=Custom\\\\HoldingsExtraSettings=CustomAllFAndS=945ab 946c|\\\\");
    DictionariesInForce::Load("");
    EXPECT_EQ(FoundIn("852", {"946  $cX"}, {kCharsetAuto, false}), "");
    EXPECT_EQ(FoundIn("852", {"949  $cX"}), "123 852");
}

TEST_F(CheckerTest, ControlFields) {
    const std::string visual = "LDR00000ngm a2200000 a 4500";
    const Case kCases[] = {
        {"008", {}, "120 008; 122 008"},
        {"008", {"008990101s19"}, "122 008"},
        {"008", {With008(7, "    ")}, "120 008"},
        {"008", {With008(7, "uuuu")}, "120 008"},
        {"008", {With008(6, "nuuuuuuuu")}, "120 008"},
        {"008", {With008(6, "|||||||||")}, "120 008"},
        {"008", {With008(7, "19uu")}, ""},
        {"008", {With008(6, "b        ")}, ""},
        {"008", {With008(6, "cuuuu1999")}, ""},
        {"008", {With008(6, "cuuuu9999")}, "120 008"},
        {"008", {With008(6, "suuuu1999")}, "120 008"},
        {"008", {With008(6, "euuuu0512")}, "120 008"},
        {"008", {With008(15, "xx ")}, "122 008"},
        {"008", {With008(15, "|||")}, "122 008"},
        {"008", {With008(15, "vp ")}, ""},
        {"008", {With008(15, "xxu")}, ""},
        {"008", {With008(18, "---")}, ""},
        {"008", {visual, With008(18, "---            v")}, "121 008"},
        {"008", {visual, With008(18, "|||            |")}, "121 008"},
        {"008", {visual, With008(18, "               m")}, "121 008"},
        {"008", {visual, With008(18, "000            v")}, ""},
        {"008", {visual, With008(18, "nnn            v")}, ""},
        {"008", {visual, With008(18, "120            v")}, ""},
        {"008", {visual, With008(18, "|||            s")}, ""},
    };
    for (const Case& c : kCases) EXPECT_EQ(FoundIn(c.without, c.with), c.found) << c.with.back();
}

TEST_F(CheckerTest, Lengths) {
    const std::string longest(9950, 'x');
    const std::string rest(9946, 'x');
    EXPECT_EQ(FoundIn("", {"500  $a" + rest}), "");
    EXPECT_EQ(FoundIn("", {"500  $a" + rest + "x"}), "129 500[2]");
    EXPECT_EQ(FoundIn("", {"500  $a" + longest}), "129 500[2]");
    EXPECT_EQ(FoundIn("", {"500  $3x$a" + longest + "x"}), "129 500[2]; 128 500[2] $a");
    EXPECT_EQ(FoundIn("008", {"008" + k008 + longest}), "129 008");

    Lines many(9, "500  $a" + rest);
    const TestRecord almost = Changed("", many);
    std::size_t size = 24 + 2;
    for (const auto& field : almost.record.fields) size += 13 + field.content.size();
    ASSERT_LT(size, 99800U);
    many.push_back("500  $a" + rest.substr(0, 99800 - size - 17));
    EXPECT_EQ(FoundIn("", many), "");
    many.back() += "x";
    EXPECT_EQ(FoundIn("", many), "130");
}

TEST_F(CheckerTest, UpperCaseTitle) {
    const struct {
        const char* title;
        Charset charset;
        bool isUpper;
    } kCases[] = {
        {"ROUGHING IT /", kCharsetAuto, true},
        {"IT", kCharsetAuto, true},
        {"M /", kCharsetAuto, false},
        {"DUNE /$cBY FRANK HERBERT", kCharsetAuto, true},
        {"CSS :$bthe definitive guide", kCharsetAuto, false},
        {"A B /$cby C", kCharsetAuto, true},
        {"IT$h[book]", kCharsetAuto, true},
        {"ROUGHING IT /$cby Mark Twain", kCharsetAuto, true},
        {"1984 :", kCharsetAuto, false},
        {"ROUGHING iT", kCharsetAuto, false},
        {"\303\211T\303\211", kCharsetUtf8, true},   // É T É
        {"\303\211T\303\251", kCharsetUtf8, false},  // É T é
        {"\342ET\342E", kCharsetMarc8, true},        // the same in MARC-8
        {"\342ET\342e", kCharsetMarc8, false},
        {"\303\206S\303\230", kCharsetUtf8, true},   // Æ S Ø
        {"\303\206S\303\270", kCharsetUtf8, false},  // ø
        {"\245S\242", kCharsetMarc8, true},          // the same in MARC-8
        {"\245S\262", kCharsetMarc8, false},
        {"\320\222\320\236\320\231\320\235\320\220", kCharsetUtf8, false},  // Cyrillic
        {"\033(NABC\033(B", kCharsetMarc8, false},                          // Cyrillic
        {"ABC \344\270\255", kCharsetUtf8, false},                          // with Chinese
        {"H\033b2\033sO", kCharsetMarc8, true},                             // a subscript
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(FoundIn("245", {std::string("24500$a") + c.title}, {c.charset, true}),
                  c.isUpper ? "131 245 $a" : "")
            << c.title;
    }
    EXPECT_EQ(FoundIn("245", {"24500$aRoughing$bIT", "740 0$aIT"}), "");
}

TEST_F(CheckerTest, Dictionary) {
    const Case kCases[] = {
        {"", {"650 0$aX$xX$xX$vX", "008" + k008}, "133 008[2]"},
        {"", {"650 0$aX$aX$aX"}, "133 650[2] $a"},
        {"", {"650 0$aX$qX$qX", "650 0$aX$q"}, "132 650[2] $q; 132 650[3] $q"},
        {"", {"251  $aX", "259  $aX", "231  $aX"}, "132 231"},
        {"", {"590  $aX$?X", "999  $XX", "LKR  $aX", "650 0$aX$9X$9X"}, ""},
        {"", {"0095", "009X", "490  $aX$=X$!X$QX"}, "132 490 $Q"},
        {"", {"LKR  $aX", "+55  $aX", "-55  $aX", "+55  $aX"}, "132 +55; 132 -55; 132 +55[2]"},
        {"", {"500  $6880-01$8X$8X$aX$6X"}, "133 500[2] $6"},
        {"", {"440 0$aX$vX", "245"}, "133 245[2]"},
        {"", {"880  $6245-01$aX$bX$bX"}, "133 880 $b"},
        {"", {"880  $6245-01$aX$xX"}, "132 880 $x"},
        {"", {"880  $6650-01$aX$xX$xX", "880  $6222-01$aX"}, ""},
        {"", {"880  $6$aX$xX$xX", "880  $aX", "880  $6xxx$aX"}, ""},
        {"", {"500  $", "500", "500  X", "500  $$a"}, ""},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(FoundIn(c.without, c.with), c.found) << c.with.front();
    }
}

TEST_F(CheckerTest, UserDefinedFields) {
    DictionariesInForce::Load("590a 6509");
    const CheckerOptions byList{kCharsetAuto, false};
    EXPECT_EQ(FoundIn("", {"590  $aX$aX$5X$6880-01", "650 0$aX$9X"}, byList), "");
    EXPECT_EQ(FoundIn("", {"590  $bX", "591  $aX", "500  $aX$9X", "LKR  $aX"}, byList),
              "132 590 $b; 132 591; 132 500[2] $9; 132 LKR");
}

TEST_F(CheckerTest, OtherFormatsHaveTheirOwnRules) {
    EXPECT_EQ(FoundIn("245 260 300", {"LDR00000nz  a2200000 a 4500", "150  $aX"}), "");
    EXPECT_EQ(FoundIn("245", {"LDR00000ny  a2200000 a 4500", "500" + std::string(9951, 'x')}),
              "129 500[2]");
}

TEST_F(CheckerTest, PolicyDecides) {
    const auto verdict = [](const PolicyChoice& choice, const std::string& without) {
        CGeneral::m_iniUserProfile.Initialize("");
        PutInForce(choice);
        std::vector<Finding> findings;
        Checker checker({});
        checker.Check(Changed(without, {}).record, findings);
        std::string text = std::to_string(checker.GetPolicy().VerdictOf(findings));
        for (const Finding& finding : findings) {
            text += finding.IsError() ? " E" : " W";
            text += std::to_string(finding.code);
        }
        return text;
    };
    EXPECT_EQ(verdict({}, "245260500"), "2 E110");
    EXPECT_EQ(verdict({}, "260500"), "0");
    EXPECT_EQ(verdict({kPolicyTLC, {}}, "260500"), "2 E113 E114");
    EXPECT_EQ(verdict({kPolicyTLC, {{"NoNotes", 1}}}, "500"), "1 W118");
    EXPECT_EQ(verdict({kPolicyCustom, {{"ZP_RC_NoNotes", 1}, {"RC_No300a", 2}}}, "300500"),
              "2 E116 E117 W118");
    EXPECT_EQ(verdict({kPolicyProfile, {{"NoNotes", 1}}}, "500300"), "1 W118");
    for (const PolicyChoice& choice :
         {PolicyChoice{kPolicyBasic, {{"NoNotes", 1}}}, PolicyChoice{kPolicyTLC, {{"No260b", 1}}},
          PolicyChoice{kPolicyCustom, {{"NoNote", 1}}},
          PolicyChoice{kPolicyCustom, {{"NoNotes", 3}}},
          PolicyChoice{kPolicyProfile, {{"ZP_FontWeight", 1}}}}) {
        EXPECT_THROW(PutInForce(choice), UsageError) << testing::PrintToString(choice.keys);
    }
}

TEST_F(CheckerTest, FindsWhatItIsAskedFor) {
    const TestRecord test = Changed("245,260", {"110  $aSociety"});
    Checker checker(CheckerOptions{});
    std::vector<Finding> findings;
    const auto codesFound = [&](std::initializer_list<int> wanted) {
        ErrorCodeSet codes;
        for (const int code : wanted) codes.Set(code);
        checker.FindOnly(codes);
        checker.Check(test.record, findings);
        std::vector<int> found;
        found.reserve(findings.size());
        for (const Finding& finding : findings) found.push_back(finding.code);
        return found;
    };
    EXPECT_EQ(codesFound({}), std::vector<int>{});
    EXPECT_EQ(codesFound({EC_NoTitle, EC_NoExtent}), std::vector<int>{EC_NoTitle});
    EXPECT_EQ(codesFound({EC_ManyMainEntriesPersonal}),
              std::vector<int>{EC_ManyMainEntriesPersonal});
}

TEST_F(CheckerTest, Words) {
    std::vector<Finding> findings;
    Checker checker({});
    checker.Check(Changed("500", {"650 0$aX$\303X", "+\0335  $aX"}).record, findings);
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_TRUE(IsValidUtf8(LineText(findings[0])));
    EXPECT_EQ(LineText(findings[1]), "E: +?5 is not a MARC field [+?5]");
    EXPECT_EQ(LineText(findings[2]), "E: no notes (500-599) [500]");
}

TEST_F(CheckerTest, TakesAnything) {
    std::mt19937 random(5);
    const std::string_view bytes = "\037\037\037a6b5892 \033\303x$";
    constexpr const char* kTags[] = {"008", "245", "880"};
    Checker checker({});
    std::vector<Finding> findings;
    for (int round = 0; round < 3000; ++round) {
        TestRecord record({}, '$');
        for (int field = 0; field < 8; ++field) {
            std::string line = std::to_string(100 + random() % 900);
            if (random() % 3 == 0) line = kTags[random() % std::size(kTags)];
            const auto end = line.size() + random() % 24;
            while (line.size() < end) line += bytes[random() % bytes.size()];
            record.Add(line);
        }
        checker.Check(record.record, findings);
        for (const Finding& finding : findings) {
            EXPECT_TRUE(IsValidUtf8(LineText(finding))) << round;
        }
    }
}

}  // namespace
}  // namespace quillory
