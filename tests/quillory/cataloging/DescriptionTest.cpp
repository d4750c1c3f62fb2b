#include <quillory/cataloging/Description.h>
#include <quillory/cataloging/PublicationDate.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillory {
namespace {

// An entry as one text: kind, place, indicators, subfields, text.
std::string Spelled(const Entry& entry) {
    constexpr const char* kKinds[] = {"sub", "field", "written", "control", "at"};
    std::string text = kKinds[static_cast<int>(entry.kind)];
    text += " " + PlaceText(entry.place);
    if (!entry.indicators.empty()) text += " '" + entry.indicators + "'";
    for (const SubfieldText& subfield : entry.subfields) {
        text += std::string(" $") + subfield.code + subfield.text;
    }
    return entry.text.empty() ? text : text + " =" + entry.text;
}

std::string Read(std::string_view place, std::string_view text) {
    try {
        return Spelled(ReadEntry(place, text));
    } catch (const EntryError& error) {
        return error.what();
    }
}

TEST(Entries, PlacesAndTexts) {
    const std::vector<std::vector<std::string>> cases{
        {"245a", "Title :", "sub 245 $a $aTitle :"},
        {"245a", "   ", "sub 245 $a $a"},
        {"650[12]x", "A\n  B\r\nC\n", "sub 650[12] $x $xA   B C"},
        {"0109", "  12", "sub 010 $9 $9  12"},
        {"245", "10$aPrice {dollar}5$c$b b", "written 245 '10' $aPrice $5 $b b"},
        {"245[1]", "\\#$aT", "written 245 '  ' $aT"},
        {"245 $a", "T", "sub 245 $a $aT"},
        {"245", "", "written 245"},
        {"001", "zs 1", "control 001 =zs 1"},
        {"008/35-37", "eng", "at 008/35-37 =eng"},
        {"007[2]/04", "b", "at 007[2]/04 =b"},
        {"leader/17", "1", "at leader/17 =1"},
        {"LDR/17", "1", "at leader/17 =1"},
        {"country", "xx", "at 008/15-17 =xx "},
        {"language", "english", "at 008/35-37 =english"},
    };
    for (const auto& test : cases) EXPECT_EQ(Read(test[0], test[1]), test[2]) << test[0];
}

TEST(Entries, WhatIsNoneIsSaid) {
    const std::vector<std::vector<std::string>> cases{
        {"", "x"},
        {"24", "x"},
        {"000", "x"},
        {"245ab", "x"},
        {"245[0]a", "x"},
        {"245[a", "x"},
        {"245[]a", "x"},
        {"245/01", "x"},
        {"245/1", "x"},
        {"006m/05", "x"},
        {"008a", "x"},
        {"008/5-3", "x"},
        {"008/", "x"},
        {"008/1x", "x"},
        {"leader", "x"},
        {"001a", "x"},
        {"245 ", "x"},
        {"245$", "x"},
        {"245[99999999999]a", "x"},
        {"001[1", "x"},
        {"245", "Title"},
        {"245", "10aT"},
        {"245", "10$$a"},
        {"245", "10$aT$"},
        {"245a", "\037b"},
        {"245a", "\035"},
        {"245a", "\xff"},
        {"245", "\303\2511$aT"},
        {"245a", "\302\033"},
    };
    for (const auto& test : cases) {
        EXPECT_THROW(ReadEntry(test[0], test[1]), EntryError) << test[0] << " = " << test[1];
    }
}

std::vector<Description> AllOf(std::string_view toml) {
    std::vector<Description> all;
    DescriptionReader reader(toml);
    for (Description description; reader.Next(description);) all.push_back(description);
    return all;
}

// Bytes that no description takes up can't be kept as rejects.
void ExpectWhole(std::string_view toml, const std::vector<Description>& all, std::uint64_t head) {
    std::uint64_t at = head;
    for (const Description& description : all) {
        EXPECT_EQ(description.offset, at) << "line " << description.line;
        at += description.size;
    }
    EXPECT_EQ(at, toml.size());
}

TEST(Descriptions, OneRecordAndMany) {
    const auto single =
        AllOf("workform = \"W\"\n245a = \"T\"\n650 = {z = \"Z\", a = [\"A\", 2]}\n");
    ASSERT_EQ(single.size(), 1U);
    EXPECT_FALSE(single[0].error);
    EXPECT_EQ(single[0].workform, "W");
    ASSERT_EQ(single[0].entries.size(), 2U);
    EXPECT_EQ(Spelled(single[0].entries[1]), "field 650 $zZ $aA $a2");

    const std::string_view toml =
        "workform = \"All\"\n\n[[record]]\n700 = [{a = \"B\"}, {a = \"A\", ind = \"0_\"}]\n"
        "100a = \"Z\"\n  [[ record ]] # two\nworkform = \"Own\"\n520a = '''\n[[record]] is no "
        "head\n'''\n"
        "[[record]]\n";
    const auto all = AllOf(toml);
    ASSERT_EQ(all.size(), 3U);
    ExpectWhole(toml, all, all[0].offset);
    EXPECT_EQ(all[0].line, 3U);
    EXPECT_EQ(all[0].workform, "All");
    ASSERT_EQ(all[0].entries.size(), 3U);
    EXPECT_EQ(Spelled(all[0].entries[1]), "field 700 '0 ' $aA");
    EXPECT_EQ(Spelled(all[0].entries[2]), "sub 100 $a $aZ");
    EXPECT_EQ(all[1].workform, "Own");
    ASSERT_EQ(all[1].entries.size(), 1U);
    EXPECT_EQ(all[1].entries[0].subfields[0].text, "[[record]] is no head");
    EXPECT_TRUE(all[2].entries.empty());
}

// "4:12 reason", or nothing.
std::string FaultOf(const Description& description) {
    if (!description.error) return {};
    return std::to_string(description.where.line) + ":" + std::to_string(description.where.column) +
           " " + FaultText(description.error);
}

TEST(Descriptions, FilesOfOtherSystems) {
    const std::string_view toml = "\xEF\xBB\xBF[[record]]\r\n245a = \"A\"\r\n\r\n[[record]]\r\n";
    const auto all = AllOf(toml);
    ASSERT_EQ(all.size(), 2U);
    ExpectWhole(toml, all, 3);
    EXPECT_EQ(Spelled(all[0].entries.at(0)), "sub 245 $a $aA");
    EXPECT_EQ(FaultOf(all[1]), "");
    EXPECT_EQ(all[1].line, 4U);
}

TEST(Descriptions, AFaultIsNamedAndTheOthersRead) {
    const std::string_view toml =
        "[[record]]\n245a = \"one\"\n[[record]]\n245a = \"two\n[[record]]\n24 = \"x\"\n"
        "[[record]]\n245a = 1.5\n[[record]]\n001 = {a = \"x\"}\n[[record]]\n245a = \"last\"\n";
    const auto all = AllOf(toml);
    ASSERT_EQ(all.size(), 6U);
    ExpectWhole(toml, all, 0);
    EXPECT_EQ(FaultOf(all[0]), "");
    EXPECT_TRUE(FaultOf(all[1]).starts_with("4:12 the description is not valid TOML: "));
    EXPECT_TRUE(FaultOf(all[2]).starts_with("6:6 \"24\" is not a place")) << FaultOf(all[2]);
    EXPECT_EQ(FaultOf(all[3]), "8:8 the value of \"245a\" is not a text");
    EXPECT_TRUE(FaultOf(all[4]).starts_with("10:7 001: only a data field")) << FaultOf(all[4]);
    EXPECT_EQ(FaultOf(all[5]), "");

    for (const char* damaged : {"x", "= 1\n[[record]]\n", "245a = 1\n[[record]]\n245a = 1\n",
                                "workform = 1.5\n[[record]]\n", "[record]\n245a = 'x'\n",
                                "[[record]]\n[other]\n", "[[record]] [[record]]\n"}) {
        const auto faulty = AllOf(damaged);
        ASSERT_FALSE(faulty.empty()) << damaged;
        EXPECT_TRUE(faulty[0].error) << damaged;
        SCOPED_TRACE(damaged);
        ExpectWhole(damaged, faulty, 0);
    }
}

TEST(PublicationDate, OnlyACertainYearCounts) {
    const std::vector<std::vector<std::string>> cases{
        {"2021.", "2021"},
        {"[2021]", "2021"},
        {"\302\2512021", "2021"},
        {"c2021.", "2021"},
        {"[2021?]", ""},
        {"2019-2021", ""},
        {"between 1 and 2", ""},
        {"", ""},
        {"2021, \302\2512020", ""},
        {"\342\204\2271999.", "1999"},
        {"202", ""},
    };
    for (const auto& test : cases) EXPECT_EQ(YearOf(test[0], false), test[1]) << test[0];
    EXPECT_EQ(YearOf("2021-", true), "2021");
    EXPECT_EQ(YearOf("2021-", false), "");
}

}  // namespace
}  // namespace quillory
