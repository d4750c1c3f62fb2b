#include <zorby/copies/HoldingsDataRecordList.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/zorby/copies/HoldingsData.h>

using namespace zorby;
using namespace std::string_literals;

namespace {

using List = CHoldingsDataRecordList;
using HoldingsDataStored = Dictionaries;

std::unique_ptr<CHoldingsDataRecord> Record(const char* callNumber) {
    auto record = std::make_unique<CHoldingsDataRecord>(HT_TYPE_1);
    record->Add(HID_TYPE_1_CALL_NUMBER, callNumber, 0, 0);
    return record;
}

// The call numbers; "-" for a place without a record.
std::string CallNumbers(const List& list) {
    std::string all;
    for (int i = 0; i < list.GetSize(); ++i) {
        const CHoldingsDataRecord* record = list.GetAt(i);
        all += record ? record->Get(HID_TYPE_1_CALL_NUMBER) : "-";
        EXPECT_TRUE(!record || record->GetOwner() == &list) << i;
    }
    return all;
}

void Fill(List& list, const char* callNumbers) {
    for (const char* c = callNumbers; *c != 0; ++c) list.Add(Record(std::string(1, *c).c_str()));
}

TEST(HoldingsDataRecordList, DuplicatesWithoutTheBarCode) {
    List list;
    CHoldingsDataRecord* first = list.AddEmptyAtEnd(HT_FOLLETT);
    for (const int id : {200, 201, 251}) first->Add(ID(id), "x", 0, 0);
    first->AddHoldingItemHold(852, 'x', "h");
    first->SetPageHasData(1);
    list.AddDuplicateAtEnd(0);
    for (const int index : {-1, 2, 3}) list.AddDuplicateAtEnd(index);
    ASSERT_EQ(list.GetCount(), 2);
    EXPECT_EQ(Elements(*list.GetAt(1)), "201=x");
    EXPECT_EQ(list.GetAt(1)->GetHoldingsType(), HT_FOLLETT);
    EXPECT_EQ(list.GetAt(1)->GetHolds().size(), 1U);
    EXPECT_EQ(list.GetAt(1)->GetOwner(), &list);
    list.GetAt(1)->RemoveAll();
    EXPECT_FALSE(list.GetAt(1)->IsEmpty());
    EXPECT_EQ(list.GetMARCSize(), 24U);
}

TEST(HoldingsDataRecordList, DeletesByNumberAndIdentity) {
    List list;
    Fill(list, "abcd");
    for (const int index : {-1, 4, 1}) list.DeleteByNumber(index);
    EXPECT_EQ(CallNumbers(list), "acd");
    const auto stranger = Record("a");
    list.DeleteByPtr(stranger.get());
    list.DeleteByPtr(nullptr);
    list.DeleteByPtr(list.GetAt(2));
    list.Add(nullptr);
    EXPECT_EQ(CallNumbers(list), "ac");
    EXPECT_EQ(list.GetAt(-1), nullptr);
    EXPECT_EQ(list.GetAt(2), nullptr);
}

TEST(HoldingsDataRecordList, ReplaceMayLeavePlacesWithoutARecord) {
    List list;
    Fill(list, "ab");
    EXPECT_EQ(list.Replace(0, Record("c")), 1);
    EXPECT_EQ(list.Replace(2, Record("d")), 1);
    EXPECT_EQ(CallNumbers(list), "cbd");
    EXPECT_EQ(list.Replace(5, Record("e")), 1);
    for (const int index : {-1, List::kHighestIndex + 1, 0x7FFFFFFF}) {
        EXPECT_EQ(list.Replace(index, Record("x")), 0) << index;
    }
    EXPECT_EQ(list.Replace(1, nullptr), 0);
    EXPECT_EQ(CallNumbers(list), "cbd--e");
    EXPECT_EQ(list.GetMARCSize(), 4 * 18U);
    list.SortByTagAndSubfield();
    list.AddDuplicateAtEnd(3);
    list.DeleteByPtr(nullptr);
    list.DeleteByNumber(3);
    EXPECT_EQ(CallNumbers(list), "cbd-e");

    List clone;
    Fill(clone, "old");
    clone.CloneFrom(list);
    EXPECT_EQ(CallNumbers(clone), "cbd");
    clone.CloneFrom(clone);
    EXPECT_EQ(CallNumbers(clone), "cbd");
    List loaded;
    Load(Store(list), loaded);
    EXPECT_EQ(CallNumbers(loaded), "cbde");
    EXPECT_EQ(list.Replace(3, Record("f")), 1);
    EXPECT_EQ(CallNumbers(list), "cbdfe");
}

TEST(HoldingsDataRecordList, RemovesEmptyOnes) {
    List list;
    for (const auto type : {HT_TYPE_1, HT_LWLP}) {
        list.AddEmptyAtEnd(type)->Add(HID_LWLP_AUTOMATIC, "auto", 0, 0);
    }
    list.AddEmptyAtEnd(HT_TYPE_1)->SetPageHasData(1);
    list.Add(Record("a"));
    list.Replace(6, Record("b"));
    list.AddEmptyAtEnd(HT_TYPE_1)->Add(HID_TYPE_1_BAR_CODE, "", 1, 0);
    list.RemoveEmptyOnes();
    EXPECT_EQ(CallNumbers(list), "ab");
    list.RemoveAll();
    EXPECT_EQ(list.GetSize(), 0);
}

const std::string kElement = "\1\x65\0\0\0\2 a"s;
const std::string kHolds = "\1\0\0\0\x54\3\0\0x\3 h "s;

TEST_F(HoldingsDataStored, HasItsBytes) {
    const std::string bytes = "\1\2\0\0\0"s + "\2"s + kHolds + "\x63\0\0\0\2\0\0\0"s + kElement +
                              "\1\xFF\xFF\xFF\xFF\0"s + "\2\0\0\0\0\xFE\xFF\xFF\xFF\0\0\0\0"s;
    List list;
    EXPECT_EQ(Load(bytes, list), bytes.size());
    EXPECT_EQ(Store(list), bytes);
    ASSERT_EQ(list.GetSize(), 2);
    const CHoldingsDataRecord& record = *list.GetAt(0);
    EXPECT_EQ(record.GetOwner(), &list);
    EXPECT_EQ(record.GetHoldingsType(), HT_CUSTOM);
    EXPECT_EQ(Elements(record), "101= a -1=");
    EXPECT_EQ(record.GetHolds().at(0).tag, 852);
    EXPECT_EQ(record.GetHolds().at(0).subfield, 'x');
    EXPECT_EQ(record.GetHolds().at(0).text, " h ");
    EXPECT_EQ(list.GetAt(1)->GetHoldingsType(), -2);

    Load(bytes, list);
    EXPECT_EQ(list.GetSize(), 4);
    EXPECT_EQ(Store(*list.GetAt(2)), bytes.substr(5, bytes.size() - 18));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        List cut;
        EXPECT_THROW(Load(bytes.substr(0, size), cut), CArchiveException) << size;
    }
}

TEST_F(HoldingsDataStored, OtherVersions) {
    struct VersionCase {
        std::string bytes;
        std::size_t read;
        std::string stored;
    };
    const std::string none = "\0\0\0\0"s;
    const std::string empty = "\2"s + none + none + none;
    const VersionCase cases[] = {
        // A record without holds; counts of none.
        {"\1\5\0\0\0\1\0\0\0"s + kElement, 17, "\2\0\0\0\0\5\0\0\0\1\0\0\0"s + kElement},
        {"\2\xFF\xFF\xFF\xFF"s + none + "\0\0\0\x80"s, 13, empty},
        // Versions that nobody knows, of the record and of an element.
        {"\3"s + kElement, 1, empty},
        {"\0"s + kElement, 1, empty},
        {"\1\0\0\0\0\2\0\0\0\2"s + kElement, 18,
         "\2\0\0\0\0\0\0\0\0\2\0\0\0\1\0\0\0\0\0"s + kElement},
    };
    for (const VersionCase& test : cases) {
        SCOPED_TRACE(testing::PrintToString(test.bytes));
        CHoldingsDataRecord record;
        EXPECT_EQ(Load(test.bytes, record), test.read);
        EXPECT_EQ(Store(record), test.stored);
    }
    const std::pair<std::string, std::size_t> lists[] = {{"\2\1\0\0\0\2"s, 1},
                                                         {"\1\xFF\xFF\xFF\xFF\2"s, 5}};
    for (const auto& [bytes, read] : lists) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        List list;
        EXPECT_EQ(Load(bytes, list), read);
        EXPECT_EQ(list.GetSize(), 0);
    }
}

TEST_F(HoldingsDataStored, TypesFollowTheOneInForce) {
    CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path());
    // In force, and what stored types become.
    const std::pair<const char*, std::vector<std::pair<int, int>>> cases[] = {
        {"Follett 2", {{3, 13}, {13, 13}, {12, 12}, {8, 8}}},
        {"Fifteen", {{12, 15}, {15, 15}, {3, 3}, {9, 9}}},
        {"Follett", {{13, 13}, {3, 3}}},
        {"LWLP 2", {{8, 8}, {9, 9}}},
        {"Unknown", {{3, 3}, {12, 12}, {99, 99}, {0, 0}}},
    };
    for (const auto& [inForce, types] : cases) {
        SetEasy(inForce);
        for (const auto& [stored, expected] : types) {
            CHoldingsDataRecord record;
            Load("\1"s + static_cast<char>(stored) + "\0\0\0\0\0\0\0"s, record);
            EXPECT_EQ(record.GetHoldingsType(), expected) << inForce << " " << stored;
            EXPECT_EQ(Store(record)[5], expected) << inForce << " " << stored;
        }
    }
}

TEST_F(HoldingsDataStored, ACountThatTheStreamDoesNotHold) {
    const std::string huge = "\xFF\xFF\xFF\x7F"s;
    const std::string listOfOne = "\1"s + huge + "\1\5\0\0\0\0\0\0\0"s;
    const std::string records[] = {"\2"s + huge, "\2"s + huge + kHolds.substr(4),
                                   "\1\1\0\0\0"s + huge + kElement};
    for (const std::string& record : records) {
        SCOPED_TRACE(testing::PrintToString(record));
        CHoldingsDataRecord loaded;
        EXPECT_THROW(Load(record, loaded), CArchiveException);
        List list;
        EXPECT_THROW(Load(listOfOne + record, list), CArchiveException);
        EXPECT_EQ(list.GetSize(), 1);
        EXPECT_EQ(list.GetAt(0)->GetOwner(), &list);
    }
}

TEST_F(HoldingsDataStored, AnythingStoresAndLoadsTheSame) {
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    List list;
    std::size_t count = 0;
    for (int round = 0; round < 2000; ++round) {
        SCOPED_TRACE(round);
        const int index = below(12) - 1;
        CHoldingsDataRecord* record = list.GetAt(index);
        switch (below(8)) {
            case 0:
                list.AddEmptyAtEnd(static_cast<EHOLDINGSTYPE>(below(20)));
                break;
            case 1:
                list.AddDuplicateAtEnd(index);
                break;
            case 2:
                list.Replace(index, Record("r"));
                break;
            case 3:
                list.DeleteByNumber(index);
                break;
            case 4:
                round % 50 == 0 ? list.RemoveEmptyOnes() : list.SortByTagAndSubfield();
                break;
            default:
                if (!record) break;
                record->Add(ID(200 + below(9)), std::string(unsigned(below(300)), 'x'), 1, 0);
                record->AddHoldingItemHold(below(1000), 'a', " h");
        }
        const std::string stored = Store(list);
        List again;
        ASSERT_EQ(Load(stored, again), stored.size());
        ASSERT_EQ(Store(again), stored);
        ASSERT_EQ(again.GetMARCSize(), list.GetMARCSize());
        if (record = again.GetAt(0); record) {
            CHoldingsDataRecord clone;
            clone.CloneFrom(*record);
            clone.CloneFrom(clone);
            ASSERT_TRUE(clone.IsEqualTo(*record));
        }
        count += stored.size();
    }
    EXPECT_GT(count, 100'000U);
}

}  // namespace
