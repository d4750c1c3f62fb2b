#include <zorby/copies/HoldingsDataRecordList.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <tests/zorby/copies/HoldingsData.h>

using namespace zorby;
using namespace std::string_literals;

namespace {

TEST(HoldingsDataElement, KeepsItsTextTrimmed) {
    CHoldingsDataElement element;
    EXPECT_EQ(element.GetMARCSize(), 0U);
    element.Create(HID_FOLLETT_FUND, " \t\r\n\v\f x  y \n", 5);
    EXPECT_EQ(element.GetText(), "x  y");
    EXPECT_EQ(element.GetMARCSize(), 6U);
    element.SetText(std::string_view(element.GetText()).substr(1));
    EXPECT_EQ(element.GetText(), "y");
    element.SetMarkedForDeletion(1);

    CHoldingsDataElement clone;
    clone.CloneFrom(element);
    EXPECT_TRUE(clone.IsEqualTo(element));
    EXPECT_EQ(clone.GetUserValue(), 0);
    EXPECT_EQ(clone.IsMarkedForDeletion(), 0);
    clone.SetText("Y");
    EXPECT_FALSE(clone.IsEqualTo(element));
    clone.Create(HID_FOLLETT_BAR_CODE, "y", 0);
    EXPECT_FALSE(clone.IsEqualTo(element));
    clone.SetText(" \n");
    EXPECT_EQ(clone.GetText(), "");
}

TEST(HoldingsDataRecord, AddMovesFurtherValues) {
    struct Step {
        int id;
        const char* text;
        int keepEmpty = 0;
    };
    const std::pair<std::vector<Step>, const char*> cases[] = {
        {{{202, "x"}, {202, "y"}, {202, "z"}, {202, "lost"}}, "202=x 204=y 206=z"},
        {{{203, "x"}, {203, "y"}, {202, "a"}, {203, "z"}, {203, "lost"}},
         "203=x 205=y 202=a 207=z"},
        {{{204, "y"}, {202, "x"}, {202, "z"}, {204, "y"}}, "204=y 202=x 206=z 204=y"},
        {{{202, "x"}, {202, ""}}, "202=x"},
        {{{202, "x"}, {202, "", 1}, {202, "y"}}, "202=x 204= 204=y"},
        // An empty first value stays the one that is looked at.
        {{{202, "", 1}, {202, "x"}, {202, "y"}}, "202= 202=x 202=y"},
        {{{407, "a"}, {407, "b"}, {407, "c"}, {408, "d"}}, "407=a 408=b 408=c 408=d"},
        {{{906, "", 1}, {906, "b"}, {906, ""}, {906, "c"}}, "906= 907=b 907=c"},
        {{{907, "a"}, {906, "b"}}, "907=a 906=b"},
        {{{101, ""}, {101, "  x  "}, {101, "\t"}, {101, "y"}}, "101=x 101= 101=y"},
        {{{-1, "a"}, {2000000000, "b"}}, "-1=a 2000000000=b"},
    };
    for (const auto& [steps, expected] : cases) {
        CHoldingsDataRecord record(HT_TYPE_1);
        for (const Step& step : steps) record.Add(ID(step.id), step.text, step.keepEmpty, 0);
        EXPECT_EQ(Elements(record), expected);
    }
}

TEST(HoldingsDataRecord, FindsTheFirstAndSetsIt) {
    CHoldingsDataRecord record(static_cast<EHOLDINGSTYPE>(-1));
    EXPECT_EQ(record.GetHoldingsType(), HT_TYPE_1);
    for (const char* text : {"a", "b"}) record.Add(HID_TYPE_1_CALL_NUMBER, text, 0, 3);
    record.Set(HID_TYPE_1_CALL_NUMBER, " c ");
    record.Set(HID_TYPE_1_BAR_CODE, "");
    EXPECT_EQ(Elements(record), "101=c 101=b");
    EXPECT_EQ(record.GetAt(0)->GetUserValue(), 3);
    record.Set(HID_TYPE_1_BAR_CODE, "7");
    record.Set(HID_TYPE_1_CALL_NUMBER, "");
    EXPECT_EQ(Elements(record), "101= 101=b 102=7");

    std::string text = "old";
    CHoldingsDataElement* element = record.GetAt(0);
    record.Get(HID_TYPE_1_BAR_CODE, text, element);
    EXPECT_EQ(text, "7");
    EXPECT_EQ(element, record.GetAt(2));
    record.Get(HID_FOLLETT_FUND, text, element);
    EXPECT_EQ(text, "");
    EXPECT_EQ(element, nullptr);
    for (const int index : {-1, 3, 1000}) EXPECT_EQ(record.GetAt(index), nullptr) << index;
    record.AddHoldingItemHold(852, 'x', " kept ");
    record.RemoveAll();
    EXPECT_EQ(record.GetElementCount(), 0);
    EXPECT_EQ(record.GetHolds().at(0).text, " kept ");
}

TEST(HoldingsDataRecord, TellsWhetherItIsEmpty) {
    struct EmptyCase {
        std::vector<std::pair<int, const char*>> elements;
        int pageHasData;
        bool isEmpty;      // most types
        bool isEmptyLWLP;  // 8 and 9
        bool hasNoText;
    };
    const EmptyCase cases[] = {
        {{}, 0, true, true, true},
        {{}, 1, false, true, true},
        {{{600, "auto"}}, 0, false, true, true},
        {{{600, "auto"}, {603, ""}}, 0, false, true, true},
        {{{603, ""}}, 0, false, true, true},
        {{{603, "x"}}, 0, false, false, false},
    };
    for (const EmptyCase& test : cases) {
        SCOPED_TRACE(&test - cases);
        for (const auto type : {HT_TYPE_1, HT_LWLP, HT_LWLP_2}) {
            SCOPED_TRACE(type);
            CHoldingsDataRecord record(type);
            for (const auto& [id, text] : test.elements) record.Add(ID(id), text, 1, 0);
            record.SetPageHasData(test.pageHasData);
            EXPECT_EQ(record.IsEmpty(), type == HT_TYPE_1 ? test.isEmpty : test.isEmptyLWLP);
            EXPECT_EQ(record.HasNoText(), test.hasNoText);
        }
    }
    // Stored white space is text for one of the two tests.
    CHoldingsDataRecord record;
    Load("\1\x08\0\0\0\1\0\0\0\1\x5B\2\0\0\1 "s, record);
    EXPECT_FALSE(record.IsEmpty());
    EXPECT_TRUE(record.HasNoText());
}

TEST(HoldingsDataRecord, IsEqualInAnyOrder) {
    CHoldingsDataRecord left(HT_FOLLETT);
    CHoldingsDataRecord right(HT_FOLLETT);
    for (const int id : {200, 213, 201}) left.Add(ID(id), "t", 0, 0);
    EXPECT_FALSE(left.IsEqualTo(right));
    EXPECT_EQ(Elements(left), "200=t 213=t 201=t");
    for (const int id : {213, 201, 200}) right.Add(ID(id), "t", 0, 0);
    right.AddHoldingItemHold(852, 'x', "no part");
    EXPECT_TRUE(left.IsEqualTo(right));
    EXPECT_EQ(Elements(left), "213=t 201=t 200=t");
    EXPECT_EQ(Elements(right), Elements(left));
    EXPECT_TRUE(left.IsEqualTo(left));
    right.Set(HID_FOLLETT_FUND, "T");
    EXPECT_FALSE(left.IsEqualTo(right));
    CHoldingsDataRecord other(HT_FOLLETT_2);
    EXPECT_FALSE(other.IsEqualTo(left));
}

TEST(HoldingsDataRecord, MeasuresItsOutput) {
    CHoldingsDataRecord record(HT_TYPE_1);
    record.Add(HID_TYPE_1_CALL_NUMBER, "", 1, 0);
    record.AddHoldingItemHold(852, 'x', "uncounted");
    EXPECT_EQ(record.GetMARCSize(), 0U);
    record.Add(HID_TYPE_1_BAR_CODE, "12345", 0, 0);
    EXPECT_EQ(record.GetMARCSize(), 22U);
}

TEST(HoldingsDataRecord, EmptyBarCodeTakesThoseOfAllSystems) {
    CHoldingsDataRecord record(HT_TYPE_1);
    for (int id = 90; id < 1000; ++id) record.Add(ID(id), "x", 0, 0);
    const int before = record.GetSize();
    record.EmptyBarCode();
    EXPECT_EQ(record.GetSize(), before - 12);
    for (const int id : {102, 155, 200, 251, 305, 401, 500, 607, 700, 803, 901, 953}) {
        EXPECT_EQ(record.Get(ID(id)), "") << id;
    }
}

class HoldingsDataOrder : public Dictionaries {
protected:
    struct Row {
        int id;
        unsigned tag;
        int subfield;
    };

    void PutInForce(const std::vector<Row>& rows) {
        auto type = std::make_unique<CInfoAboutHoldingsType>();
        for (const auto& [id, tag, subfield] : rows) {
            type->AddField("", tag, static_cast<std::int8_t>(subfield), '\0', ID(id), 0, "");
        }
        CInfoAboutHoldingsTypeList list;
        list.AddType(std::move(type));
        folder.Write("zorby.hld", Store(list));
        ASSERT_EQ(CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path()), 1);
    }

    // Below 0 where left goes first, and 0 where either may.
    static int Compare(EHOLDINGSID left, EHOLDINGSID right) {
        const auto* a = CInfoAboutHoldingsTypeList::FindFromID(left);
        const auto* b = CInfoAboutHoldingsTypeList::FindFromID(right);
        if (a->GetTag() != b->GetTag()) return a->GetTag() > b->GetTag() ? -1 : 1;
        const bool aIsDigit = a->GetSubfield() >= '0' && a->GetSubfield() <= '9';
        const bool bIsDigit = b->GetSubfield() >= '0' && b->GetSubfield() <= '9';
        if (aIsDigit != bIsDigit) return aIsDigit ? 1 : -1;
        if (a->GetSubfield() < 32 && b->GetSubfield() < 32) return left - right;
        if (left == 906 && right == 907) return -1;
        if (left == 907 && right == 906) return 1;
        return a->GetSubfield() - b->GetSubfield();
    }
};

TEST_F(HoldingsDataOrder, FollowsTheDictionary) {
    const std::pair<std::vector<Row>, const char*> cases[] = {
        {{{1, 852, 'b'}, {2, 852, 'a'}, {3, 900, 'z'}, {4, 852, '0'}}, "3 2 1 4"},
        {{{1, 852, '9'}, {2, 852, '~'}, {3, 852, 1}, {4, 852, '!'}}, "3 4 2 1"},
        {{{7, 852, 1}, {6, 852, 5}, {5, 852, -3}, {8, 852, 31}, {1, 852, ' '}}, "5 6 7 8 1"},
        {{{2, 852, 'a'}, {1, 852, 'a'}, {3, 852, 'a'}}, "2 1 3"},
        {{{907, 852, 'a'}, {906, 852, 'a'}}, "906 907"},
        {{{907, 852, 'a'}, {906, 852, 'x'}, {5, 852, 'm'}}, "5 906 907"},
        {{{907, 852, 'x'}, {906, 852, 'a'}, {5, 852, 'm'}}, "906 5 907"},
        {{{907, 852, 'a'}, {906, 852, '1'}}, "907 906"},
        {{{907, 900, 'a'}, {906, 852, 'a'}}, "907 906"},
        {{{907, 852, 2}, {906, 852, 'a'}}, "906 907"},
        {{{907, 852, 'a'}, {905, 852, 'a'}}, "907 905"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(&test - cases);
        const auto& [rows, expected] = test;
        PutInForce(rows);
        CHoldingsDataRecord record(HT_TYPE_12);
        record.Add(ID(99), "unknown", 0, 0);
        record.Add(ID(98), "unknown", 0, 0);
        for (const Row& row : rows) record.Add(ID(row.id), "t", 0, 0);
        record.SortByTagAndSubfield();
        EXPECT_EQ(IDs(record), expected + " 99 98"s);
    }
    CInfoAboutHoldingsTypeList::DestroyYourself();
    CHoldingsDataRecord record(HT_TYPE_12);
    for (const int id : {3, 1, 2}) record.Add(ID(id), "", 1, 0);
    record.SortByTagAndSubfield();
    EXPECT_EQ(IDs(record), "3 1 2");
}

TEST_F(HoldingsDataOrder, HoldsBetweenAnyTwo) {
    std::mt19937 engine(71);
    const auto random = [&] { return static_cast<unsigned>(engine()); };
    constexpr int kSubfields[] = {1, 9, -3, 31, ' ', 'a', 'b', '0', '9'};
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        std::vector<Row> rows;
        for (int id = 895; id < 912; ++id) {
            rows.push_back({id, 850 + random() % 3, kSubfields[random() % std::size(kSubfields)]});
        }
        rows[12] = {907, rows[11].tag, rows[11].subfield};  // a pair has one place
        PutInForce(rows);
        CHoldingsDataRecord record(HT_TYPE_12);
        std::map<int, int> counts;
        for (unsigned i = 0; i < 40; ++i) {
            record.Add(ID(895 + static_cast<int>(random() % 17)), "t", 0, 0);
            ++counts[record.GetAt(record.GetSize() - 1)->GetID()];
        }
        record.SortByTagAndSubfield();
        for (int i = 0; i < record.GetSize(); ++i) {
            --counts[record.GetAt(i)->GetID()];
            for (int j = i + 1; j < record.GetSize(); ++j) {
                EXPECT_LE(Compare(record.GetAt(i)->GetID(), record.GetAt(j)->GetID()), 0)
                    << i << " and " << j;
            }
        }
        for (const auto& [id, count] : counts) EXPECT_EQ(count, 0) << id;
    }
}

}  // namespace
