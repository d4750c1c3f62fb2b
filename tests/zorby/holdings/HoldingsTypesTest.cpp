#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <gtest/gtest.h>

#include <tests/zorby/format/Dictionaries.h>
#include <vector>

using namespace zorby;
using namespace std::string_literals;

namespace {

using List = CInfoAboutHoldingsTypeList;
using HoldingsTypes = Dictionaries;

EHOLDINGSID ID(int number) {
    return static_cast<EHOLDINGSID>(number);
}

TEST(HoldingsFamilies, HaveTheirEdges) {
    const std::vector<std::vector<int>> families{
        {100, 103, 1},  {150, 156, 2},  {200, 216, 3}, {250, 262, 10}, {264, 264, 10},
        {300, 313, 4},  {400, 408, 5},  {500, 511, 7}, {600, 620, 8},  {700, 705, 6},
        {800, 808, 11}, {900, 909, 12}, {950, 964, 14}};
    int members = 0;
    for (const auto& family : families) {
        for (const int id : {family[0], family[1]}) {
            EXPECT_EQ(List::GetHoldingsTypeFromHoldingsID(ID(id)), family[2]) << id;
        }
        for (const int id : {family[0] - 1, family[1] + 1}) {
            EXPECT_EQ(List::GetHoldingsTypeFromHoldingsID(ID(id)), 0) << id;
        }
        members += family[1] - family[0] + 1;
    }
    int known = 0;
    for (int id = -5; id < 1100; ++id) known += List::GetHoldingsTypeFromHoldingsID(ID(id)) != 0;
    EXPECT_EQ(known, members);
}

TEST(HoldingsType, HasItsBytes) {
    CInfoAboutHoldingsType type;
    type.AddOldName("lost");
    type.Create("N", HT_FOLLETT_2, 5, 1);
    type.AddOldName("O");
    type.AddField("F", 852, 'h', ';', HID_FOLLETT_CALL_NUMBER, 1, "H");
    type.AddField("", -2, 900, std::int8_t{-3}, '\0', HID_FOLLETT_BAR_CODE, 0, "");
    const std::string bytes = "\2\0\0\0\1N\1O\5\0\0\0\r\0\0\0\1\0\0\0\2\0\0\0"s +
                              "\1F\x54\3\0\0h;\1\0\0\0\0\0\0\0\xC9\0\0\0\1H"s +
                              "\0\x84\3\0\0\xFD\0\0\0\0\0\xFE\xFF\xFF\xFF\xC8\0\0\0\0"s;
    EXPECT_EQ(Store(type), bytes);
    CInfoAboutHoldingsType loaded;
    EXPECT_EQ(Load(bytes, loaded), bytes.size());
    EXPECT_EQ(Store(loaded), bytes);
    EXPECT_EQ(loaded.GetAt(1)->GetSubfield(), -3);
    EXPECT_EQ(loaded.GetAt(1)->GetExtraValue(), -2);
    EXPECT_STREQ(loaded.GetRuntimeClass()->name, "CInfoAboutHoldingsType");
    EXPECT_STREQ(loaded.GetAt(0)->GetRuntimeClass()->name, "CInfoAboutHoldingsField");

    CInfoAboutHoldingsType nameless;
    Load("\xFF\xFF\xFF\xFF\0\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0"s, nameless);
    EXPECT_EQ(nameless.GetName(), "");
    EXPECT_EQ(nameless.GetSize(), 0);
}

TEST(HoldingsType, FindsItsFields) {
    CInfoAboutHoldingsType type;
    type.AddField("first", 852, 'p', '\0', HID_FOLLETT_BAR_CODE, 0, "help");
    type.AddField("second", 852, 'p', '\0', HID_FOLLETT_BAR_CODE, 1, "");
    type.AddField("third", 900, 9, '\0', HID_FOLLETT_CALL_NUMBER, 0, "");
    EXPECT_EQ(type.GetFieldInfo(HID_FOLLETT_BAR_CODE), type.GetAt(0));
    EXPECT_EQ(type.GetFieldInfo(HID_FOLLETT_FUND), nullptr);
    EXPECT_EQ(type.FindFieldAndSubfield(852, 'p'), type.GetAt(0));
    EXPECT_EQ(type.FindFieldAndSubfield(900, 9), type.GetAt(2));
    EXPECT_EQ(type.FindFieldAndSubfield(900, 'p'), nullptr);
    EXPECT_TRUE(type.FindField(900));
    EXPECT_FALSE(type.FindField(901));
    EXPECT_TRUE(type.FieldIsOnePerRecord(852));
    EXPECT_FALSE(type.FieldIsOnePerRecord(900));
    EXPECT_EQ(type.GetHelpStringForID(HID_FOLLETT_BAR_CODE), "help");
    EXPECT_EQ(type.GetHelpStringForID(HID_FOLLETT_FUND), "");
    EXPECT_EQ(type.GetAt(3), nullptr);
    EXPECT_EQ(type.GetAt(-1), nullptr);
    std::string name = "old";
    type.GetFieldNameFromID(HID_FOLLETT_CALL_NUMBER, name);
    EXPECT_EQ(name, "third");
    type.GetFieldNameFromID(HID_FOLLETT_FUND, name);
    EXPECT_EQ(name, "");
}

TEST(HoldingsType, TellsItsTagsOnce) {
    const std::vector<std::pair<std::vector<unsigned>, const char*>> cases{
        {{}, ""},
        {{852, 852, 949}, "852,949"},
        {{852, 52, 8, 949, 94, 1852}, "852,949,1852"},
        {{9, 852, 949}, "9,852,949"},
    };
    for (const auto& [tags, expected] : cases) {
        SCOPED_TRACE(testing::PrintToString(tags));
        CInfoAboutHoldingsType type;
        for (const unsigned tag : tags) type.AddField("", tag, 'a', '\0', ID(1), 0, "");
        EXPECT_EQ(type.GetCurrentHoldingsFields(), expected);
        type.Create("", HT_MANDARIN_EZ, 0, 0);
        EXPECT_EQ(type.GetCurrentHoldingsFields(), "001,852,989");
    }
}

TEST_F(HoldingsTypes, WithoutADictionaryNothingIsFound) {
    EXPECT_EQ(List::TheOneAndOnly(), nullptr);
    EXPECT_EQ(List::GetFirst(), nullptr);
    EXPECT_EQ(List::GetNext(), nullptr);
    EXPECT_EQ(List::FindFromName("Basic"), nullptr);
    EXPECT_EQ(List::FindFromID(HID_TYPE_1_CALL_NUMBER), nullptr);
}

TEST_F(HoldingsTypes, AreWalkedAndFound) {
    EXPECT_EQ(List::CreateTheOneAndOnly(folder.Path()), 1);
    std::vector<int> walked;
    for (const auto* type = List::GetFirst(); type; type = List::GetNext()) {
        walked.push_back(type->GetHoldingsTypeID());
    }
    EXPECT_EQ(walked, (std::vector{1, 3, 7, 9, 10, 13, 14, 15, 16}));
    EXPECT_EQ(List::GetNext(), nullptr);
    EXPECT_EQ(List::TheOneAndOnly()->GetAt(9), nullptr);

    EXPECT_EQ(List::FindFromName("Follett old"), List::FindFromType(HT_FOLLETT_2));
    EXPECT_EQ(List::FindFromName("Follett old")->GetName(), "Follett 2");
    EXPECT_EQ(List::FindFromName("follett 2"), nullptr);
    EXPECT_EQ(List::FindFromType(HT_CUSTOM), nullptr);
    EXPECT_EQ(List::FindFromID(HID_FOLLETT_BAR_CODE)->GetName(), "Follett");
    EXPECT_EQ(List::FindFromID(HID_FOLLETT_CALL_NUMBER)->GetName(), "Call number");
    EXPECT_EQ(List::FindFromID(HID_FOLLETT_FUND), nullptr);

    std::vector<std::string> names;
    std::vector<EHOLDINGSID> ids;
    for (const int id : {201, 201, 213}) List::GetMenuItemsFromID(ID(id), names, ids);
    EXPECT_EQ(names,
              (std::vector<std::string>{"Follett 2", "Call number", "Follett 2", "Call number"}));
    EXPECT_EQ(ids, (std::vector{ID(200), ID(201), ID(200), ID(201)}));
}

TEST_F(HoldingsTypes, AMissingOrTruncatedFileLeavesNone) {
    const std::string bytes = HoldingsBytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        folder.Write("zorby.hld", bytes.substr(0, size));
        EXPECT_THROW(List::CreateTheOneAndOnly(folder.Path()), CArchiveException) << size;
        EXPECT_EQ(List::TheOneAndOnly(), nullptr) << size;
    }
    // Counts of types, names and fields that no file holds.
    for (const std::size_t at : {0U, 4U, 26U}) {
        folder.Write("zorby.hld", std::string(bytes).replace(at, 4, "\xFF\xFF\xFF\x7F"));
        EXPECT_THROW(List::CreateTheOneAndOnly(folder.Path()), CArchiveException) << at;
    }
    folder.Write("zorby.hld", bytes);
    List::CreateTheOneAndOnly(folder.Path());
    EXPECT_EQ(List::CreateTheOneAndOnly(folder.Path("none") + "/"), 0);
    EXPECT_EQ(List::TheOneAndOnly(), nullptr);
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "File \"" + folder.Path("none/zorby.hld") +
                  "\"could not be opened.  Can't start program.  Code: 2");
}

}  // namespace
