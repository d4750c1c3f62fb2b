#include <quillory/exchange/Input.h>

#include <tests/quillory/holdings/HoldingsFixture.h>

namespace quillory {
namespace {

using HoldingsFileTest = HoldingsFixture;

// Such as "101=A 102=7; 101=B 852$z=note", the copies divided by semicolons.
std::string TextOf(const zorby::CHoldingsDataRecordList& copies) {
    std::string text;
    for (int i = 0; i < copies.GetSize(); ++i) {
        const zorby::CHoldingsDataRecord& copy = *copies.GetAt(i);
        text += i == 0 ? "" : ";";
        for (int j = 0; j < copy.GetSize(); ++j) {
            text += " " + std::to_string(copy.GetAt(j)->GetID()) + "=" + copy.GetAt(j)->GetText();
        }
        for (const auto& hold : copy.GetHolds()) {
            text += " " + std::to_string(hold.tag) + "$" + hold.subfield + "=" + hold.text;
        }
    }
    return text;
}

std::string FaultOf(std::string_view text, const HoldingsSystem& system) {
    const TemporaryFile file(text);
    try {
        const HoldingsFile read(file.Path(), system);
    } catch (const FileError& error) {
        EXPECT_TRUE(error.What()) << text;
        const std::string what = error.what();
        EXPECT_TRUE(what.starts_with(file.Path() + ": line "));
        return what.substr(std::min(file.Path().size() + 7, what.size()));
    }
    return "none";
}

TEST_F(HoldingsFileTest, BothFormsGiveTheCopiesOfARecord) {
    const HoldingsSystem system = System("Public library circulation system");
    const char* const texts[] = {
        "\xEF\xBB\xBF"
        "bar code\t001\tPublic note\t852$k\t400\tStatistical category 1\r\n"
        "7\t zs1 \tcaf\xC3\xA9|b\tREF\tA\tx\r\n"
        "\r\n"
        "8\tzs2\r\n"
        "9\tzs1\t\t\tB",
        "{\"001\": \"zs1\", \"Bar code\": 7, \"Public note\": \"caf\\u00e9|b\", \"852k\": \"REF\", "
        "\"Call number\": \"A\", \"407\": [\"x\", null, \"\"]}\n\n"
        "{\"Bar code\": \"8\", \"001\": \"zs2\"}\n"
        "{\"401\": \"9\", \"Call number\": \"B\", \"001\": \"zs1\"}\n",
    };
    for (const char* text : texts) {
        SCOPED_TRACE(text);
        const TemporaryFile file(text);
        HoldingsFile holdings(file.Path(), system);
        zorby::CHoldingsDataRecordList copies;
        EXPECT_FALSE(holdings.AddCopies("", 1, copies));
        EXPECT_FALSE(holdings.AddCopies("zs", 1, copies));
        EXPECT_TRUE(holdings.AddCopies("zs1  ", 1, copies));
        EXPECT_FALSE(holdings.HasRecordNumbers());
        const bool isTsv = text[0] != '{';
        EXPECT_EQ(TextOf(copies), " 401=7 406=caf\xC3\xA9|b 400=A 407=x 852$k=REF; 401=9 400=B");
        EXPECT_EQ(copies.GetAt(0)->GetHoldingsType(), zorby::HT_TYPE_5);
        std::string unused;
        for (const auto& [line, key, isPassedOver] : holdings.UnusedLines()) {
            EXPECT_FALSE(isPassedOver);
            unused += std::to_string(line) + " " + key + ";";
        }
        EXPECT_EQ(unused, isTsv ? "4 001 zs2;" : "3 001 zs2;");
    }
}

TEST_F(HoldingsFileTest, RecordNumbersAreKeysToo) {
    const HoldingsSystem system = System("5");
    const TemporaryFile file(
        "{\"record\": 12, \"Bar code\": \"7\"}\n"
        "{\"001\": \"record 12\", \"Bar code\": \"8\"}\n"
        "{\"001\": \"12\", \"Bar code\": [\"9\", \"10\"]}\n");
    HoldingsFile holdings(file.Path(), system);
    EXPECT_TRUE(holdings.HasRecordNumbers());
    zorby::CHoldingsDataRecordList copies;
    EXPECT_TRUE(holdings.AddCopies("", 12, copies));
    EXPECT_TRUE(holdings.AddCopies("12", 1, copies));
    EXPECT_EQ(TextOf(copies), " 401=7; 401=9 401=10");
}

TEST_F(HoldingsFileTest, FaultsAreNamedByLineAndColumn) {
    const HoldingsSystem system = System("Follett");
    const std::pair<std::string, const char*> cases[] = {
        {"", "1: the file is empty"},
        {"\n001\tColour\n",
         "2: \"Colour\" is neither an element nor a place in the holdings fields of Follett, "
         "first release"},
        {"001\t949$a\n", "1: \"949$a\" is neither an element nor a place"},
        {"001\t852[2]$a\n", "1: \"852[2]$a\" is neither an element nor a place"},
        {"001\t852/1\n", "1: \"852/1\" is neither an element nor a place"},
        {"001\t852$A\n", "1: \"852$A\" is neither an element nor a place"},
        {"001\tPrice\t\nx\t1\t\nx\t1\t2\n", "3, column 5: a value in a column without a name"},
        {"001\trecord\n", "1: one column must be the key, 001 or record"},
        {"Price\n", "1: one column must be the key, 001 or record"},
        {"001\tPrice\nx\t1\n\t2\n", "3: no key (001 or record)"},
        {"001\tPrice\nx\t1\nx\t\n", "3: no value for 001 x"},
        {"001\tPrice\nx\t1\t\nx\t1\t2\n", "3, column 5: more cells than columns"},
        {"001\tPrice\nx\t\xC3\xA9\xFF\n", "2, column 4: not in UTF-8"},
        {"001\tPrice\nx\ta\037b\n", "2: Price: a control character"},
        {"record\tPrice\n01\t1\n", "2: \"01\" is not the number of a record"},
        {"record\tPrice\n1a\t1\n", "2: \"1a\" is not the number of a record"},
        {"{\"001\": \"x\", \"Price\": 1}\n[]\n", "2, column 1: not a JSON object"},
        {"{\"001\": \"x\", \"Price\": 1", "1, column 24: malformed JSON: syntax error"},
        {std::string("{\"001\": \"x\", \"Price\": 1}\0", 25),
         "1, column 25: malformed JSON: a NUL"},
        {"[{\"001\": \"x\"}]", "1: the file is a JSON array; it must hold one object a line"},
        {"{\"001\": \"x\", \"Price\": 1.5}\n", "1: Price: neither a text nor a whole number"},
        {"{\"001\": \"x\", \"Price\": [[\"1\"]]}\n", "1: Price: neither a text nor a whole number"},
        {"{\"001\": \"x\", \"Price\": 1, \"Price\": 2}\n", "1: a name more than once"},
        {"{\"001\": \"x\", \"record\": 1, \"Price\": 2}\n", "1: more than one key"},
        {"{\"001\": \"x\", \"Prise\": 1}\n", "1: \"Prise\" is neither an element nor a place"},
        {"{\"001\": \"x\", \"Public note 1\": [\"a\", \"b\", \"c\", \"d\"]}\n",
         "1: Public note 1: no room for this value: the element takes no more of them, or the "},
    };
    for (const auto& [text, fault] : cases) {
        const std::string said = FaultOf(text, system);
        EXPECT_EQ(said.substr(0, std::string_view(fault).size()), fault) << text;
    }
}

TEST_F(HoldingsFileTest, BarCodesThatCanNotBeRightAreNamedByLine) {
    struct Case {
        const char* system;
        const char* text;
        const char* doubts;
    };
    const char* const kSame =
        "{\"record\": 1, \"Bar code\": [\"7\", 8]}\n{\"record\": 2, \"Bar code\": 8}\n\n"
        "{\"001\": \"x\", \"Bar code\": \" 7 \", \"Price\": 7}\n{\"001\": \"y\", \"Bar code\": "
        "7}\n";
    const Case cases[] = {
        {"Alexandria", "001\tBar code\tPrice\nx\t7\t8\ny\t8\t8\ny\t\t8\n", ""},
        {"Alexandria", "001\tBar code\tBAR CODE\t852p\nx\t7\t\t\ny\t8\t8\t\nz\t9\t\t7\n",
         "3: the copy has 2 bar codes: 8, 8\n4: the copy has 2 bar codes: 9, 7\n"
         "4: the copy has the bar code 7, which the copy of line 2 has already\n"},
        {"Dynix", "001\tBar code\t949b\t949p\nx\t7\t8\t8\ny\t\t8\t9\n",
         "2: the copy has 2 bar codes: 7, 8\n"
         "3: the copy has the bar code 8, which the copy of line 2 has already\n"},
        {"5", kSame,
         "1: the copy has 2 bar codes: 7, 8\n"
         "2: the copy has the bar code 8, which the copy of line 1 has already\n"
         "4: the copy has the bar code 7, which the copy of line 1 has already\n"
         "5: the copy has the bar code 7, which the copy of line 1 has already\n"},
        {"", "001\t852$p\t852$h\nx\t7\t7\ny\t7\t7\n",
         "3: the copy has the bar code 7, which the copy of line 2 has already\n"},
    };
    for (const auto& [name, text, doubts] : cases) {
        const HoldingsSystem system = *name == '\0' ? HoldingsSystemInForce() : System(name);
        const TemporaryFile file(text);
        const HoldingsFile holdings(file.Path(), system);
        std::string found;
        for (const auto& [line, fault] : holdings.Doubts()) {
            found += std::to_string(line) + ": " + FaultReason(fault) + "\n";
        }
        EXPECT_EQ(found, doubts) << text;
        zorby::CGeneral::m_iniUserProfile.Initialize("");
    }
}

TEST_F(HoldingsFileTest, WhatASpreadsheetLeavesAtItsEdgesIsNothing) {
    const HoldingsSystem system = System("Follett");
    const TemporaryFile file("001\t\tPrice\t\nx\t\t1\t\t\n\t\t\t\ny\t \t2\n");
    HoldingsFile holdings(file.Path(), system);
    zorby::CHoldingsDataRecordList copies;
    EXPECT_TRUE(holdings.AddCopies("x", 1, copies));
    EXPECT_TRUE(holdings.AddCopies("y", 2, copies));
    EXPECT_EQ(copies.GetSize(), 2);
}

TEST_F(HoldingsFileTest, CustomHoldingsHavePlacesAlone) {
    const HoldingsSystem system = HoldingsSystemInForce();
    EXPECT_EQ(system.id, zorby::HT_CUSTOM);
    EXPECT_EQ(FaultOf("001\t852$h\t852p\t852 $k\nx\ty\n", system), "none");
    const std::string fault = FaultOf("001\tBar code\nx\ty\n", system);
    EXPECT_TRUE(fault.starts_with("1: \"Bar code\" is not a place in the holdings fields"));
    EXPECT_NE(fault.find("; 14 Alexandria; "), fault.npos) << fault;
    EXPECT_EQ(FaultOf("001\t245$a\nx\ty\n", system).substr(0, 11), "1: \"245$a\" ");
}

}  // namespace
}  // namespace quillory
