#include <zorby/conditions/OnlyWhenState.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/zorby/format/Dictionaries.h>

using namespace zorby;

namespace {

// All stored fields and the tag.
std::string Saved(COnlyWhenState state) {
    std::string text;
    state.SaveState(text);
    return text;
}

COnlyWhenState Read(const std::string& text, const std::string& tag = "") {
    COnlyWhenState state;
    state.InitializeOnlyWhenState(tag, text);
    return state;
}

struct TagCase {
    const char* text;
    int tag;
    char subfield;
    int holdingsID;
};

TEST(OnlyWhenState, ReadsTheTag) {
    // 7, '~' and 9 are there before, and stay where the text does not speak of them.
    const TagCase cases[] = {
        {"", 7, 0, 9},
        {"24", 7, 0, 9},
        {"245", 245, 0, 9},
        {R"(\24)", 0, 0, 9},
        {"245a", 245, 'a', 9},
        {"abcd", 0, 'd', 9},
        {R"(\24a)", 0, 'a', 9},
        {R"(\245\)", 245, 0, 9},
        {R"(\245a)", 245, 'a', 9},
        {R"(\245a\)", 245, 'a', 9},
        {R"(\245ab)", 245, 'a', 9},
        {R"(\HLD25)", 0, '2', 9},
        {R"(\HLD250)", 7, 0, 250},
        {R"(\HLD250\)", 7, 0, 250},
        {R"(\HLD9999)", 7, 0, 999},
        {R"(245aHLD)", 7, 0, 0},
        {R"(\HLD250\x)", 0, '2', 9},
        {R"(\650x\y\z)", 650, 'x', 9},
        {"650xyzv", 650, 'x', 9},
        {"24 abcd", 24, 'a', 9},
    };
    for (const TagCase& test : cases) {
        COnlyWhenState state;
        state.parsedTag = 7;
        state.parsedSubfield = '~';
        state.parsedHoldingsID = static_cast<EHOLDINGSID>(9);
        state.tagText = test.text;
        state.ParseTag();
        EXPECT_EQ(state.parsedTag, test.tag) << test.text;
        EXPECT_EQ(state.parsedSubfield, test.subfield) << test.text;
        EXPECT_EQ(state.parsedHoldingsID, test.holdingsID) << test.text;
    }
}

TEST(OnlyWhenState, PacksInAFixedOrder) {
    COnlyWhenState state;
    state.tagText = R"(\650x\)";
    state.onlyWhen = true;
    state.first = {false, 'x', {}, CT_CONTAINS, "HISTORY", false};
    const std::string text =
        R"(Tag=\650x\\\OnlyWhen=1\\AnySubfield1=0\\Subfield1=120\\HoldingsID1=0\\ContainType1=0\\)"
        R"(ContainsText1=HISTORY\\MatchCase1=0\\Advanced=0\\AnySubfield2=1\\Subfield2=0\\)"
        R"(HoldingsID2=0\\ContainType2=0\\ContainsText2=\\MatchCase2=0\\BothConditions=1\\)";
    EXPECT_EQ(Saved(state), text);
    EXPECT_EQ(Saved(Read(text)), text);

    // Unknown keys stay, and known ones stay in their places.
    const std::string odd = R"(Mine=\A\\Advanced=1\\Subfield1=-23\\)";
    EXPECT_TRUE(Saved(Read(odd)).starts_with(R"(Mine=\A\\Advanced=1\\Subfield1=-23\\Tag=\\Only)"));
}

TEST(OnlyWhenState, ReadsWhatIsMissingOrMalformed) {
    const std::string defaults = Saved(COnlyWhenState());
    EXPECT_EQ(Saved(Read("")), defaults);
    EXPECT_EQ(Read("", "245").parsedTag, 245);
    EXPECT_TRUE(Read(R"(OnlyWhen=1\\)").onlyWhen);
    EXPECT_FALSE(Read(R"(OnlyWhen=2\\)").onlyWhen);
    EXPECT_TRUE(Read(R"(\OnlyWhen=1\\)").onlyWhen);
    EXPECT_FALSE(Read(R"(OnlyWhen=0\\\OnlyWhen=1\\)").onlyWhen);
    EXPECT_FALSE(Read(R"(BothConditions=yes\\)").bothConditions);
    EXPECT_FALSE(Read(R"(AnySubfield1=-1\\)").first.anySubfield);
    EXPECT_EQ(Read(R"(Subfield2= 353x\\)").second.subfield, 'a');  // 256 + 97
    EXPECT_EQ(Read(R"(ContainType2=9\\)").second.containType, 9);

    const COnlyWhenState state = Read(R"(Tag=650x\\)", "245a");
    EXPECT_EQ(state.parsedTag, 650);
    EXPECT_EQ(state.parsedSubfield, 'x');
    EXPECT_EQ(state.tagText, "650x");
    EXPECT_EQ(Read(R"(Tag=\\)", "245a").tagText, "245a");
}

TEST(OnlyWhenState, AReusedStateKeepsItsTexts) {
    COnlyWhenState state = Read(R"(ContainsText1=x\\Advanced=1\\)", "245");
    state.extraText = "mine";
    state.SetDelimiters("[", "]");
    state.InitializeOnlyWhenState("", R"(OnlyWhen=1\\)");
    EXPECT_EQ(state.first.containsText, "x");
    EXPECT_EQ(state.extraText, "mine");
    EXPECT_FALSE(state.advanced);
    EXPECT_EQ(state.parsedTag, 0);
    std::string text;
    state.MakeLongString(text, 1, 0, 0);
    EXPECT_EQ(text, R"(<<Any element contains "x">>)");
}

TEST(OnlyWhenState, RandomStatesComeBack) {
    std::mt19937 random(1);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    const auto text = [&] {
        std::string made;
        for (int left = upTo(6); left > 0; --left) made += "a=*?\xFF "[upTo(5)];
        return upTo(3) == 0 ? made + "\\" : made;
    };
    const auto test = [&] {
        return OnlyWhenTest{upTo(1) == 1,
                            static_cast<char>(upTo(255)),
                            static_cast<EHOLDINGSID>(upTo(2000) - 1000),
                            static_cast<CONTAIN_TYPE>(upTo(5)),
                            text(),
                            upTo(1) == 1};
    };
    for (int i = 0; i < 500; ++i) {
        SCOPED_TRACE(i);
        COnlyWhenState state;
        state.tagText = text();
        state.onlyWhen = upTo(1) == 1;
        state.first = test();
        state.advanced = upTo(1) == 1;
        state.second = test();
        state.bothConditions = upTo(1) == 1;
        const std::string packed = Saved(state);
        const COnlyWhenState read = Read(packed);
        EXPECT_EQ(Saved(read), packed);
        EXPECT_EQ(read.first.subfield, state.first.subfield) << packed;
        EXPECT_EQ(read.second.containsText, state.second.containsText) << packed;
        EXPECT_EQ(read.first.holdingsID, state.first.holdingsID) << packed;
    }
}

class OnlyWhenSentence : public Dictionaries {
protected:
    void SetUp() override {
        CMARCFormat::InitializeYourself("");
        CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path() + "/");
        WriteZorbyProfileInt(ZP_DisplayNameOrMARC, EDO_NameOnly);
    }

    static std::string Sentence(const COnlyWhenState& state) {
        std::string text = "old";
        state.MakeLongString(text, 0, 0, 1);
        return text;
    }
};

TEST_F(OnlyWhenSentence, NamesSubjectsAndTests) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(ContainsText1=HISTORY\\)", R"(Any subfield contains "HISTORY")"},
        {R"(Tag=\HLD250\\\ContainType1=2\\)", "Any element is empty or missing"},
        {R"(AnySubfield1=0\\Subfield1=97\\ContainType1=3\\Advanced=1\\)"
         R"(ContainType2=1\\ContainsText2=x\\MatchCase2=1\\)",
         R"(Title subfield is not empty AND Any does not contain "x" while matching case)"},
        {R"(ContainType1=9\\Advanced=1\\BothConditions=0\\AnySubfield2=0\\Subfield2=98\\)",
         R"(Any subfield OR Remainder subfield contains "")"},
        {R"(Tag=\HLD252\\\AnySubfield1=0\\HoldingsID1=251\\ContainType1=3\\)",
         "Unison is not empty"},
        {R"(Tag=\HLD251\\\AnySubfield1=0\\Subfield1=97\\ContainType1=3\\)",
         "Mandarin EZ Transfer is not empty"},  // the dictionary here has an element 0
        {R"(Tag=\HLD251\\\AnySubfield1=0\\HoldingsID1=998\\ContainType1=3\\)",
         "unknown holdings field is not empty"},
        {R"(AnySubfield1=0\\HoldingsID1=999\\ContainType1=2\\)",
         "unknown holdings field is empty or missing"},
    };
    for (const auto& [text, sentence] : cases) {
        const std::string tag = std::string(text).starts_with("Tag") ? "" : "245a";
        const COnlyWhenState state = Read(std::string(R"(OnlyWhen=1\\)") + text, tag);
        EXPECT_EQ(Sentence(state), std::string("Only When: ") + sentence) << text;
    }
    WriteZorbyProfileInt(ZP_DisplayNameOrMARC, EDO_CodeOnly);
    EXPECT_EQ(
        Sentence(Read(R"(OnlyWhen=1\\AnySubfield1=0\\Subfield1=97\\ContainType1=3\\)", "245")),
        "Only When: $a subfield is not empty");
}

TEST_F(OnlyWhenSentence, AlwaysAndDelimiters) {
    COnlyWhenState state;
    std::string text = "old";
    state.MakeLongString(text, 1, 0, 1);
    EXPECT_EQ(text, "");
    state.MakeLongString(text, 0, 1, 1);
    EXPECT_EQ(text, "Always");
    state.SetDelimiters("", "]");
    state.MakeLongString(text, 1, 1, 0);
    EXPECT_EQ(text, "<<Always]");
    state.onlyWhen = true;
    state.first.containType = CT_NOT_EMPTY;
    state.MakeLongString(text, 1, 0, 1);
    EXPECT_EQ(text, "<<Only When: Any element is not empty]");
}

}  // namespace
