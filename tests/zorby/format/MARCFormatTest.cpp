#include <zorby/format/MARCFormat.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <tests/zorby/format/Dictionaries.h>
#include <vector>

using namespace zorby;
using namespace std::string_literals;

namespace {

using MARCFormat = Dictionaries;

std::vector<std::string> Parsed(const std::string& list, int allowBareTags = 0,
                                std::vector<std::string> entries = {}) {
    CMARCFormat::ParseUDSubfields(list, entries, allowBareTags);
    return entries;
}

std::string Joined(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& entry : entries) text += (text.empty() ? "" : " ") + entry;
    return text;
}

TEST(UserDefinedList, IsParsedTokenByToken) {
    struct ListCase {
        const char* list;
        const char* entries;
        const char* withBareTags;  // null if they make no difference
    };
    const ListCase cases[] = {
        {"", "", nullptr},
        {" \t ", "", nullptr},
        {"590ab 591-593 900a\\901b", "590 590a 590b 591 592 593 900 900a 901 901b", nullptr},
        {"590", "", "590"},
        {"590-590", "590", nullptr},
        {"590A 591a", "", "590 591 591a"},
        {"590Aa", "590 590a", nullptr},
        {"590~ 591a", "", "590 591 591a"},
        {"599-590 591a", "591 591a", nullptr},
        {"59a 59ab 5x0a 590b", "590 590b", nullptr},
        {"\t590a\t 591a", "590 590a 591 591a", nullptr},
        {"590aa 590ba", "590 590a 590b", nullptr},
        {"590?z@", "590 590? 590z", nullptr},
        {"590a 589-591", "590 590a 589 590 591", nullptr},
        {"00a-01b 5", "000 001", nullptr},
        {"abc-abd", "000", nullptr},
        {"59x-590", "", nullptr},
        {"998-999 999-99z", "998 999", nullptr},
        {"590-5911", "590 590- 5905 5909 5901", nullptr},
    };
    for (const ListCase& test : cases) {
        EXPECT_EQ(Joined(Parsed(test.list)), test.entries) << test.list;
        EXPECT_EQ(Joined(Parsed(test.list, 1)),
                  test.withBareTags ? test.withBareTags : test.entries)
            << test.list;
    }
    EXPECT_EQ(Joined(Parsed("590ab", 0, {"590", "x590b"})), "590 x590b 590a");
}

TEST(UserDefinedList, ValidCodesAreLowerCaseDigitsAndPunctuation) {
    const std::string valid = "abcdefghijklmnopqrstuvwxyz0123456789!\"#$%&'()*+,-./:;<=>?";
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        EXPECT_EQ(CMARCFormat::IsAnyValidSubfield(c), valid.find(c) != std::string::npos) << code;
    }
}

TEST_F(MARCFormat, WithoutADictionaryAnswersAreThoseOfAnEmptyOne) {
    CMARCFormat::FreeYourself();
    CMARCFormat::AddUserDefined("590a");
    CMARCFormat::RemoveUserDefined();
    std::string text;
    EXPECT_EQ(CMARCFormat::TheOneAndOnly(), nullptr);
    EXPECT_EQ(CMARCFormat::FindField(590), nullptr);
    EXPECT_EQ(CMARCFormat::FindSubfield(590, 'a'), nullptr);
    EXPECT_TRUE(CMARCFormat::AllTags(0, 999)->empty());
    EXPECT_EQ(CMARCFormat::DefaultIndicator(245, 1), '\0');
    EXPECT_EQ(CMARCFormat::IsUDField(245), 0);
    CMARCFormat::FieldName(245, EDO_NameOnly, text);
    EXPECT_EQ(text, "User defined 245");
}

TEST_F(MARCFormat, TheFileHasItsListsInOrder) {
    CMARCFormat format;
    format.SetName("N");
    format.AddField(1, '#', '2', "F", 1, 0, 9);
    format.AddSubfield(1, 'a', "S", 1, 0, 0, 0);
    format.AddIndicatorExpl(1, 1, "E");
    format.AddIndicatorName(1, 2, "I");
    format.AddIndicatorValue(1, 1, '#', "V");
    const std::string one = "\1\0\0\0"s;
    const std::string none = "\0\0\0\0"s;
    EXPECT_EQ(Store(format), "\1N" + one + one + "\1F" + none + one +                  //
                                 one + "\1S" + one + "a" + none + one + none + none +  //
                                 one + one + one + "\1E" +                             //
                                 one + one + "\2\0\0\0"s + "\1I" +                     //
                                 one + one + one + "_\1V" +                            //
                                 one + one + "_2");
}

TEST_F(MARCFormat, IsLoadedWithTheUserDefinedListsOfHostAndHoldings) {
    SetHoldings("EasyOrCustom=Custom\\\\HoldingsExtraSettings=CustomAllFAndS=949xy|\\\\");
    EXPECT_EQ(CMARCFormat::InitializeYourself("590-590 590-590 590a 245az"), 1);
    EXPECT_TRUE(messages.messages.empty());
    const CMARCFormat& format = *CMARCFormat::TheOneAndOnly();
    EXPECT_EQ(format.GetName(), "MARC 21");
    EXPECT_EQ(*CMARCFormat::AllTags(0, 999), (std::vector<unsigned>{8, 245, 500, 590, 852, 949}));
    EXPECT_EQ(CMARCFormat::FindSubfield(245, 'a')->GetName(), "Title");
    std::string codes;
    for (const unsigned tag : {245U, 852U, 949U}) CMARCFormat::AllSubfieldCodes(tag, codes);
    EXPECT_EQ(codes, "abzpkhimxy");
    EXPECT_EQ(CMARCFormat::IsUDField(590), 1);
    EXPECT_EQ(CMARCFormat::IsUDField(245), 0);
    EXPECT_EQ(CMARCFormat::IsUDField(591), 0);
    EXPECT_EQ(CMARCFormat::DefaultIndicator(245, 1), '1');
    EXPECT_EQ(CMARCFormat::DefaultIndicator(590, 2), '_');
    EXPECT_EQ(CMARCFormat::GetPriority(590, 'a'), 1);
    EXPECT_EQ(format.GetIndicatorDefaults().GetSize(), 6);

    CMARCFormat::RemoveUserDefined();
    EXPECT_EQ(*CMARCFormat::AllTags(0, 999), (std::vector<unsigned>{8, 245, 500}));
    EXPECT_EQ(format.GetSubfields().GetSize(), 2);
    EXPECT_EQ(CMARCFormat::DefaultIndicator(590, 2), '_');
}

TEST_F(MARCFormat, AMissingFileIsToldAndLeavesNone) {
    CMARCFormat::InitializeYourself("");
    FixedApplication elsewhere(folder.Path("none") + "/", '/', false);
    SetApplicationPort(&elsewhere);
    EXPECT_EQ(CMARCFormat::InitializeYourself(""), 0);
    EXPECT_EQ(CMARCFormat::TheOneAndOnly(), nullptr);
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "File \"" + folder.Path("none/MARCBibl.tfm") +
                  "\"could not be opened.  Can't start program.  Code: 2");
    // A folder in its place has another number of the system.
    std::filesystem::create_directories(folder.Path("none/MARCBibl.tfm"));
    EXPECT_EQ(CMARCFormat::InitializeYourself(""), 0);
    EXPECT_TRUE(messages.messages[1].text.ends_with("Code: " + std::to_string(EISDIR)));
}

TEST_F(MARCFormat, ATruncatedFileThrowsAndLeavesNone) {
    const std::string bytes = FormatBytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        folder.Write("MARCBibl.tfm", bytes.substr(0, size));
        EXPECT_THROW(CMARCFormat::InitializeYourself("590a"), CArchiveException) << size;
        EXPECT_EQ(CMARCFormat::TheOneAndOnly(), nullptr) << size;
    }
    folder.Write("MARCBibl.tfm", bytes + "more");
    EXPECT_EQ(CMARCFormat::InitializeYourself("590a"), 1);
    EXPECT_EQ(CMARCFormat::IsUDField(590), 1);
}

TEST_F(MARCFormat, NamesAreShownAsTheOptionSays) {
    SetEasy("Basic");
    CMARCFormat::InitializeYourself("");
    const std::vector<std::pair<int, std::vector<std::string>>> cases{
        {0,
         {"Title statement (245)", "User defined 092 (092)", "Title ($a)", "User defined $x ($x)",
          "Yes (1)"}},
        {1, {"Title statement", "User defined 092", "Title", "User defined $x", "Yes"}},
        {2,
         {"245 (Title statement)", "092 (User defined 092)", "$a (Title)", "$x (User defined $x)",
          "1 (Yes)"}},
        {3, {"245", "092", "$a", "$x", "1"}},
        {4, {"Title statement", "User defined 092", "Title", "User defined $x", "Yes"}},
    };
    for (const auto& [number, expected] : cases) {
        SCOPED_TRACE(number);
        const auto option = static_cast<EDISPLAYOPTIONS>(number);
        std::vector<std::string> texts(4, "old");
        CMARCFormat::FieldName(245, option, texts[0]);
        CMARCFormat::FieldName(92, option, texts[1]);
        CMARCFormat::SubfieldName(245, 'a', option, texts[2]);
        CMARCFormat::SubfieldName(245, 'x', option, texts[3]);
        texts.push_back(CMARCFormat::IndicatorValue(245, 1, '1', option));
        EXPECT_EQ(texts, expected);
        CMARCFormat::SubfieldName(8, 'a', option, texts[0]);
        EXPECT_EQ(texts[0], "Fixed data");
        CMARCFormat::SubfieldName(9, 'a', option, texts[0]);
        EXPECT_EQ(texts[0], "User defined 009");
        EXPECT_EQ(CMARCFormat::IndicatorValue(245, 2, '1', option), "Unknown indicator value (1)");
    }
    std::string text;
    CMARCFormat::GetIndicatorNameFor(245, 1, EDO_NameOnly, text);
    EXPECT_EQ(text, "Added entry");
    CMARCFormat::GetIndicatorExplanationFor(245, 1, text);
    CMARCFormat::GetSubfieldsToPromptFor(245, text);
    EXPECT_EQ(text, "Whether to trace the titlea");
    EXPECT_EQ(CMARCFormat::GetIndicatorValueMatchFirst(500, 1)->GetValue(), '_');
    EXPECT_EQ(CMARCFormat::GetIndicatorValueMatchNext(500, 1), nullptr);
}

TEST_F(MARCFormat, AlexandriasFieldsAreKnownWithoutRecords) {
    CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path());
    SetEasy("Alexandria");
    CMARCFormat::InitializeYourself("");
    EXPECT_EQ(*CMARCFormat::AllTags(100, 200), (std::vector<unsigned>{900, 92}));
    std::string text = "x";
    CMARCFormat::AllSubfieldCodes(900, text);
    CMARCFormat::AllSubfieldCodes(92, text);
    CMARCFormat::AllSubfieldCodes(901, text);
    EXPECT_EQ(text, "xaa");
    CMARCFormat::FieldName(900, EDO_NameAndCode, text);
    EXPECT_EQ(text, "Alexandria default call number (900)");
    CMARCFormat::SubfieldName(92, 'a', EDO_CodeAndName, text);
    EXPECT_EQ(text, "$a (Alexandria title volume number)");
    CMARCFormat::SubfieldName(92, 'b', EDO_NameOnly, text);
    EXPECT_EQ(text, "User defined $b");
    EXPECT_EQ(CMARCFormat::FindField(900), nullptr);
    CMARCFormat::AddUserDefined("900b");
    CMARCFormat::FieldName(900, EDO_NameOnly, text);
    EXPECT_EQ(text, "User defined");
    SetEasy("Basic");
    EXPECT_TRUE(CMARCFormat::AllTags(100, 200)->empty());
}

}  // namespace
