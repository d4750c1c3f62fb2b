#include <zorby/copies/HoldingsDataRecordList.h>
#include <zorby/record/Pmarc.h>

#include <gtest/gtest.h>

#include <tests/zorby/copies/HoldingsData.h>

using namespace zorby;
using namespace std::string_literals;

namespace {

struct Row {
    int id;
    unsigned tag;
    int subfield;
    char delimiter = '\0';
};

struct Value {
    int id;
    const char* text;
};

// The mapping of the cases, as far as they don't bring their own.
const Row kRows[] = {
    {101, 852, 'h'}, {102, 852, 'p'},    {151, 852, 'k'}, {153, 852, 'i'}, {200, 852, 'p'},
    {201, 852, 'h'}, {211, 852, 1, ','}, {212, 852, 2},   {213, 852, 'x'}, {214, 949, 3},
    {251, 852, 'p'}, {253, 852, 5},      {258, 852, 'x'}, {400, 852, 'h'}, {406, 852, 'z', '|'},
    {407, 852, 'x'}, {408, 852, 'x'},    {500, 949, 'b'}, {502, 949, 'd'}, {603, 852, 'h'},
    {612, 961, 'a'}, {620, 970, 'v'},    {900, 852, 'h'}, {906, 852, 'c'}, {907, 852, 'c'},
    {952, 852, 'h'}, {960, 852, 9},      {961, 852, 10},  {962, 852, 11},  {963, 852, 12},
    {964, 852, 13},  {959, 852, 14},
};

class HoldingsToMARC : public Dictionaries {
protected:
    // The type's own rows hide those of the mapping.
    void PutInForce(const std::vector<Row>& own) {
        CInfoAboutHoldingsTypeList list;
        auto all = Type("Dynix", HT_DYNIX, 0, ID(0));
        const auto add = [&](const Row& row) {
            all->AddField("", row.tag, static_cast<std::int8_t>(row.subfield), row.delimiter,
                          ID(row.id), 0, "");
        };
        for (const Row& row : own) add(row);
        for (const Row& row : kRows) add(row);
        list.AddType(std::move(all));
        folder.Write("zorby.hld", Store(list));
        CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path());
    }

    static std::unique_ptr<CHoldingsDataRecord> Copy(EHOLDINGSTYPE type,
                                                     const std::vector<Value>& values) {
        auto copy = std::make_unique<CHoldingsDataRecord>(type);
        for (const Value& value : values) copy->Add(ID(value.id), value.text, 1, 0);
        return copy;
    }

    // Such as "852  $ha$pb;949  $da", without the delimiters of the format.
    static std::string Fields(const CPmarc& marc) {
        std::string all;
        for (const std::string& field : marc) all += (all.empty() ? "" : ";") + field;
        for (char& byte : all) byte = byte == '\037' ? '$' : byte;
        return all;
    }
};

TEST_F(HoldingsToMARC, EachSystemHasItsWays) {
    struct Case {
        EHOLDINGSTYPE type;
        std::vector<Value> values;
        const char* fields;
        std::vector<HoldingItemHold> holds = {};
        std::vector<Row> rows = {};
    };
    const Case cases[] = {
        {HT_TYPE_1, {}, ""},
        {HT_TYPE_1, {{102, "7"}, {101, "A"}, {102, ""}}, "852  $p7$hA$p"},
        {HT_TYPE_1,
         {{101, "A"}, {102, "B"}},
         "852  $hA$\001B",
         {},
         {{101, 852, 'h'}, {102, 852, 1}}},
        {HT_TYPE_1, {{101, "A"}, {9, "unknown"}}, "852  $hA"},
        // The composite of Follett's systems.
        {HT_FOLLETT, {{212, "Fiction"}}, "852  $xFSC@bFiction"},
        {HT_FOLLETT, {{211, "Fic, ,Juv"}, {200, "7"}}, "852  $p7$xFSC@aFic@aJuv"},
        {HT_FOLLETT_2, {{211, ",Fic,"}, {212, ""}}, "852  $xFSC@aFic@b"},
        {HT_FOLLETT, {{211, ""}}, "852  $xFSC"},
        {HT_FOLLETT_UNISON, {{253, "12"}, {258, "9"}, {251, "7"}}, "852  $xFUND: 9$p7$xFSC@e12"},
        {HT_FOLLETT, {{213, "12.50"}}, "852  $xFUND: 12.50"},
        {HT_FOLLETT, {{213, "12.50"}}, "852  $xFSC@f12.50", {}, {{213, 852, 6}}},
        {HT_FOLLETT, {{213, "12.50"}}, "852  $f12.50", {}, {{213, 852, 'f'}}},
        {HT_FOLLETT,
         {{213, ""}, {258, "a;b"}},
         "852  $xFUND:$xFUND: a$xb",
         {},
         {{213, 852, 'x', ';'}, {258, 852, 'x', ';'}}},
        {HT_FOLLETT, {{214, "Acme"}, {200, "7"}}, "852  $p7;949  $xFSC@cAcme"},
        {HT_FOLLETT, {{200, "7"}, {214, "Acme"}}, "852  $p7$xFSC@cAcme;949  "},
        {HT_FOLLETT,
         {{211, "a"}},
         "852  $xFSC\x40\x5D"
         "a",
         {},
         {{211, 852, -3}}},
        // That of Alexandria.
        {HT_ALEXANDRIA, {{962, "Gift"}}, "852  $1Policy:Gift|Note:x|", {{852, '1', "Note:x"}}},
        {HT_ALEXANDRIA, {{959, "x"}}, "852  "},
        {HT_ALEXANDRIA,
         {{960, "Gift"}, {964, "i"}, {961, ""}, {963, "Acme"}, {952, "c"}},
         "852  $hc$zkept$1Funds:Gift|Inventory:i|Accession:|Vendor:Acme|",
         {{852, 'z', "kept"}}},
        {HT_ALEXANDRIA, {}, "", {{852, '1', "lost"}}},
        {HT_FOLLETT, {{200, "7"}}, "852  $p7$1kept", {{852, '1', "kept"}}},
        // Second values.
        {HT_TYPE_5, {{408, "b"}}, "852  $x$xb"},
        {HT_TYPE_5, {{407, "a"}, {408, "b"}}, "852  $xa$xb"},
        {HT_TYPE_5, {{408, "b"}, {407, ""}, {408, "c"}}, "852  $xb$x$xc"},
        {HT_TYPE_5, {{408, "b"}, {408, "c"}}, "852  $x$xb$x$xc"},
        {HT_TYPE_12, {{907, "b"}}, "852  $c$cb"},
        {HT_TYPE_15, {{907, "b"}}, "852  $c$cb"},
        {HT_FOLLETT_2, {{907, "b"}}, "852  $cb"},
        {HT_TYPE_12, {{408, "b"}}, "852  $xb"},
        {HT_TYPE_5, {{907, "b"}, {408, "c"}}, "852  $cb$x$xc"},
        {HT_TYPE_5, {{408, "b"}}, "852  $x$xb", {}, {{408, 852, 'x', ';'}}},
        {HT_TYPE_5, {{406, "a |b|"}, {406, "|a|b"}}, "852  $za$zb$z$z|a|b"},
        // Up to two fields.
        {HT_LWLP, {{620, "v"}, {603, "h"}, {612, "a"}}, "852  $hh$aa;970  $vv"},
        {HT_LWLP,
         {{603, "h"}, {612, "a"}},
         "852  $hh$zA;961  $aa$cB",
         {{852, 'z', "A"}, {961, 'c', "B"}, {970, 'd', "lost"}}},
        {HT_LWLP,
         {{603, "h"}},
         "852  $hh;970  $dD$eE",
         {{970, 'd', "D"}, {961, 'c', "lost"}, {970, 'e', "E"}, {0, 'f', "lost"}}},
        {HT_LWLP, {}, "961  $c C $d;970  $d", {{961, 'c', " C "}, {970, 'd', ""}, {961, 'd', ""}}},
        {HT_LWLP, {}, "", {{0, 'a', "lost"}, {-852, 'a', "lost"}}},
    };
    for (const Case& test : cases) {
        PutInForce(test.rows);
        const auto copy = Copy(test.type, test.values);
        for (const auto& [tag, subfield, text] : test.holds) {
            copy->AddHoldingItemHold(tag, subfield, text);
        }
        CPmarc marc;
        copy->AddToPseudoMARC(marc);
        EXPECT_EQ(Fields(marc), test.fields) << "case " << &test - cases;
    }
}

TEST_F(HoldingsToMARC, DynixInForceSetsTheIndicatorsOfAnyCopy) {
    PutInForce({});
    const auto fields = [&](EHOLDINGSTYPE type) {
        CPmarc marc;
        CHoldingsDataRecordList list;
        list.Add(Copy(type, {{500, "7"}, {603, "h"}}));
        list.Add(Copy(type, {}));
        list.Add(Copy(type, {{502, "c"}}));
        list.AddToPseudoMARC(marc);
        return Fields(marc);
    };
    EXPECT_EQ(fields(HT_DYNIX), "852  $hh;949  $b7;949  $dc");
    SetEasy("Dynix", "DynixIndicators=1|");
    EXPECT_EQ(fields(HT_DYNIX), "852  $hh;9491 $b7;9491 $dc");
    SetEasy("Dynix", "DynixIndicators= 23|");
    EXPECT_EQ(fields(HT_FOLLETT), "852  $hh;949 2$b7;949 2$dc");
}

TEST_F(HoldingsToMARC, CopiesStandInTheRecordInTheirOrder) {
    PutInForce({});
    CHoldingsDataRecordList list;
    list.Replace(1, Copy(HT_FOLLETT, {{211, "Fic"}, {200, "7"}, {201, "F"}}));
    list.Add(Copy(HT_FOLLETT, {{200, "8"}}));
    list.SortByTagAndSubfield();
    CPmarc marc;
    marc.AstaAdd(0, ' ', ' ', 0, 1, "     nam a22     2a 4500");
    marc.AstaAdd(852, '4', '1', 'p', 1, "6");
    marc.AstaAdd(900, ' ', ' ', 'a', 1, "x");
    list.AddToPseudoMARC(marc);
    std::string record;
    marc.ConvertToUSMARCCommFormat(record);
    EXPECT_EQ(record,
              "00111nam a22000732a 4500"
              "852000600000852001900006852000600025900000600031\036"
              "41\037p6\036  \037hF\037p7\037xFSC@aFic\036  \037p8\036  \037ax\036\035");
}

TEST_F(HoldingsToMARC, TheListShowsCallNumbersAndBarCodes) {
    struct Case {
        EHOLDINGSTYPE type;
        const char* callNumber;
    };
    const Case cases[] = {
        {HT_NONE, ""},
        {HT_TYPE_1, "101"},
        {HT_TYPE_2, "151 152 153 154"},
        {HT_FOLLETT, "201"},
        {HT_TYPE_4, "301 302 303 304"},
        {HT_TYPE_5, "400"},
        {HT_TYPE_6, "702 703"},
        {HT_DYNIX, "502"},
        {HT_LWLP, "603 604"},
        {HT_LWLP_2, "603 604"},
        {HT_FOLLETT_UNISON, "252"},
        {HT_TYPE_11, "802"},
        {HT_TYPE_12, "900"},
        {HT_FOLLETT_2, "201"},
        {HT_ALEXANDRIA, "952"},
        {HT_TYPE_15, "900"},
        {HT_MANDARIN_EZ, ""},
        {HT_CUSTOM, ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.type);
        CHoldingsDataRecord copy(test.type);
        copy.Add(ID(0), "none", 0, 0);
        for (int id = 999; id >= 90; --id) copy.Add(ID(id), std::to_string(id), 0, 0);
        EXPECT_EQ(copy.GetRecVCallNumber(), test.callNumber);
        EXPECT_EQ(copy.GetRecVBarCode(), "953 901 803 700 607 500 401 305 251 200 155 102");
    }
    CHoldingsDataRecordList list;
    list.Replace(1, Copy(HT_TYPE_2, {{153, "FIC"}, {155, "7"}, {152, ""}, {151, "E"}, {200, "8"}}));
    list.Add(Copy(HT_TYPE_1, {{102, ""}}));
    list.Add(Copy(HT_TYPE_1, {{101, "B"}, {101, "C"}, {102, "9"}}));
    EXPECT_EQ(list.GetRecVCallNumbers(), "E FIC\001B");
    EXPECT_EQ(list.GetRecVBarCodes(), "7 8\0019");
}

}  // namespace
