#include <zorby/holdings/HoldingsSelector.h>

#include <gtest/gtest.h>

#include <tests/zorby/format/Dictionaries.h>
#include <vector>

using namespace zorby;

namespace {

using Selector = CHoldingsSelector;

class HoldingsSelector : public Dictionaries {
protected:
    HoldingsSelector() { CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path()); }

    // Tags, place of the call number, place of the bar code.
    static std::string Places() {
        std::string fields = "old";
        std::string callNumber = "old";
        std::string barCode = "old";
        Selector::GetCurrentHoldingsFields(fields, callNumber, barCode);
        return fields + " " + callNumber + " " + barCode;
    }

    static EHOLDINGSTYPE TypeOrCustom() {
        EHOLDINGSTYPE type = HT_NONE;
        Selector::GetCurrentHoldingsType(type);
        return type;
    }

    static std::string Stored() {
        std::string text;
        GetZorbyProfileString(ZP_NewHoldings, text);
        return text;
    }
};

TEST_F(HoldingsSelector, AnEmptyProfileIsCustom) {
    EXPECT_EQ(Selector::GetCurrentHoldingsType(), nullptr);
    EXPECT_EQ(Selector::GetCurrentHoldingsTypeID(), HT_NONE);
    EXPECT_EQ(TypeOrCustom(), HT_CUSTOM);
    EXPECT_EQ(Selector::GetCurrentHoldingsTypeName(), "Custom");
    EXPECT_TRUE(Selector::CurrentHoldingsTypeIsCustom());
    EXPECT_EQ(Selector::GetNextBarCode(), "");
    EXPECT_EQ(Selector::GetDynixIndicators(), "__");
    EXPECT_EQ(Selector::GetCustomHoldingsFieldsAndSubfields(), "");
    EXPECT_EQ(Places(), " 852khim 852p");
    EXPECT_EQ(Selector::GetUDFields(), "852p 852khim ");
    EXPECT_FALSE(Selector::IsHoldingsField(852));
    EXPECT_FALSE(Selector::IsCustomHoldingTag(852));
}

TEST_F(HoldingsSelector, EachTypeHasItsPlacesAndUserDefinedFields) {
    struct TypeCase {
        const char* name;
        const char* extra;
        EHOLDINGSTYPE type;
        bool isCustom;
        const char* places;
        const char* userDefined;
    };
    const TypeCase cases[] = {
        {"Basic", "", HT_TYPE_1, false, "852 852h 852p", ""},
        {"Dynix", "DynixIndicators=1|", HT_DYNIX, false, "949 949d 949b", ""},
        {"LWLP 2", "LWLPCallTag=099|LWLPSubTags=ab|", HT_LWLP_2, false, "900 852khim 852p",
         "099ab"},
        {"Unison", "FollettUnisonLocOfMasterCallNumber=092a|", HT_FOLLETT_UNISON, false,
         "852 852khim 852p", "092a"},
        {"Unison", "", HT_FOLLETT_UNISON, false, "852 852khim 852p", "900a"},
        {"Unison", "FollettUnisonNextAccNumber=5|", HT_FOLLETT_UNISON, false, "852 852khim 852p",
         ""},
        {"Follett old", "", HT_FOLLETT_2, false, "900,852 852khim 852p", ""},
        {"Mandarin EZ Transfer", "MandarinEZTransferHoldingsSubfields=kx|", HT_MANDARIN_EZ, true,
         "001,852,989 852khim 852p", "852kx"},
        {"Mandarin EZ Transfer", "", HT_MANDARIN_EZ, true, "001,852,989 852khim 852p", "852khip"},
    };
    for (const TypeCase& test : cases) {
        SetEasy(test.name, test.extra);
        EXPECT_EQ(Selector::GetCurrentHoldingsTypeID(), test.type) << test.name;
        EXPECT_EQ(TypeOrCustom(), test.type) << test.name;
        EXPECT_EQ(Selector::CurrentHoldingsTypeIsCustom(), test.isCustom) << test.name;
        EXPECT_EQ(Places(), test.places) << test.name;
        EXPECT_EQ(Selector::GetUDFields(), test.userDefined) << test.name;
    }
    SetEasy("Follett old");
    EXPECT_EQ(Selector::GetCurrentHoldingsTypeName(), "Follett 2");
    EXPECT_TRUE(Selector::IsHoldingsField(900));
    EXPECT_FALSE(Selector::IsHoldingsField(901));
}

TEST_F(HoldingsSelector, AnUnknownTypeIsNoneButNotCustom) {
    SetEasy("basic");
    EXPECT_EQ(Selector::GetCurrentHoldingsType(), nullptr);
    EXPECT_EQ(Selector::GetCurrentHoldingsTypeID(), HT_NONE);
    EXPECT_EQ(TypeOrCustom(), HT_CUSTOM);
    EXPECT_FALSE(Selector::CurrentHoldingsTypeIsCustom());
    EXPECT_EQ(Places(), "  ");
    EXPECT_EQ(Selector::GetUDFields(), "");
}

TEST_F(HoldingsSelector, CustomFieldsAreTheUsersOwn) {
    SetHoldings(
        "EasyOrCustom=Custom\\\\HoldingsType=Basic\\\\HoldingsExtraSettings="
        "CustomAllFAndS=852khim 949d|CustomBarCodeSubfield=949b|CustomCallNumberSubfields=|\\\\");
    EXPECT_EQ(Selector::GetCurrentHoldingsType(), nullptr);
    EXPECT_EQ(Places(), "852 852khim 949b");
    EXPECT_EQ(Selector::GetUDFields(), "949b 852khim 852khim 949d");
    EXPECT_TRUE(Selector::IsCustomHoldingTag(949));
    EXPECT_FALSE(Selector::IsCustomHoldingTag(9));
    EXPECT_TRUE(Selector::IsHoldingsFieldForCapitalization(852, 'h'));
    EXPECT_FALSE(Selector::IsHoldingsFieldForCapitalization(852, 'd'));
    EXPECT_TRUE(Selector::IsHoldingsFieldForCapitalization(949, 'd'));
    EXPECT_FALSE(Selector::IsHoldingsFieldForCapitalization(949, '4'));
    EXPECT_FALSE(Selector::IsHoldingsFieldForCapitalization(950, 'd'));
    SetEasy("Basic", "CustomAllFAndS=949d|");
    EXPECT_FALSE(Selector::IsCustomHoldingTag(949));
}

TEST_F(HoldingsSelector, MandarinsFieldsAreInOneTag) {
    SetEasy("Mandarin EZ Transfer", "MandarinEZTransferHoldingsSubfields=khip|CustomAllFAndS=9x|");
    EXPECT_EQ(Selector::GetMandarinHoldingSubfields(), "khip");
    EXPECT_EQ(Selector::GetCustomHoldingsFieldsAndSubfields(), "852khip");
    EXPECT_EQ(Selector::GetCustomCallNumber(), "852khim");
    EXPECT_TRUE(Selector::IsCustomHoldingTag(852));
    EXPECT_TRUE(Selector::IsHoldingsFieldForCapitalization(852, 'p'));
}

TEST_F(HoldingsSelector, DynixIndicatorsHaveANormalForm) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"", "__"}, {"1", "1_"}, {"1 ", "1_"}, {" ", "__"}, {"12", "12"}, {" 2 ", "_2_"}};
    for (const auto& [stored, normal] : cases) {
        SetEasy("Dynix", std::string("DynixIndicators=") + stored + "|");
        EXPECT_EQ(Selector::GetDynixIndicators(), normal) << testing::PrintToString(stored);
    }
}

TEST_F(HoldingsSelector, AValueTakesTheBackslashOfTheNextKey) {
    WriteZorbyProfileString(ZP_NewHoldings, "NextBarCode=1\\\\\\\\Key=2\\\\");
    EXPECT_EQ(Selector::GetNextBarCode(), "1\\");
    Selector::SetNextBarCode("5");
    EXPECT_EQ(Selector::GetNextBarCode(), "5\\");
}

TEST_F(HoldingsSelector, SettersWriteTheSettingsThrough) {
    SetEasy("Unison", "FollettUnisonLocOfMasterCallNumber=092a|");
    Selector::SetNextBarCode("T 0100\\");
    Selector::SetNextAccNo("77");
    EXPECT_EQ(Stored(),
              "EasyOrCustom=Easy\\\\HoldingsType=Unison\\\\HoldingsExtraSettings="
              "FollettUnisonLocOfMasterCallNumber=092a|FollettUnisonNextAccNumber=77|\\\\"
              "NextBarCode=T 0100\\\\\\");
    EXPECT_EQ(Selector::GetNextBarCode(), "T 0100\\");
    EXPECT_EQ(Selector::GetNextAccNo(), "77");
    EXPECT_EQ(Selector::GetFollettUnisonDCNLocation(), "092a");
    EXPECT_NE(files.texts.begin()->second.find("FollettUnisonNextAccNumber=77|"),
              std::string::npos);
}

TEST_F(HoldingsSelector, ElementsBelongToBothTypesOfAPair) {
    struct PairCase {
        const char* type;
        int id;
        bool isSame;
    };
    const PairCase cases[] = {
        {"Follett", 205, true},    {"Follett 2", 205, true}, {"Fifteen", 905, true},
        {"LWLP 2", 605, true},     {"Basic", 101, true},     {"Basic", 205, false},
        {"Follett 2", 605, false}, {"none", 101, false},     {"none", 1, false}};
    for (const PairCase& test : cases) {
        SetEasy(test.type);
        EXPECT_EQ(CInfoAboutHoldingsTypeList::IsSameHoldingsType(static_cast<EHOLDINGSID>(test.id)),
                  test.isSame)
            << test.type << test.id;
    }
}

}  // namespace
