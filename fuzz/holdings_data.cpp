#include <zorby/copies/HoldingsDataRecordList.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>

#include <fuzz/HoldingsDictionary.h>
#include <fuzz/Persisted.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <map>
#include <utility>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr int kMostElements = 200;  // of a record that grows by elements

EHOLDINGSID AnyID(FuzzedDataProvider& data) {
    constexpr int kIDs[] = {0, 101, 202, 203, 204, 407, 600, 607, 906, 907, 908};
    return static_cast<EHOLDINGSID>(data.PickValueInArray(kIDs));
}

// Each element, and how often it occurs.
std::map<std::pair<int, std::string>, int> Contents(const CHoldingsDataRecord& record) {
    std::map<std::pair<int, std::string>, int> contents;
    for (int i = 0; i < record.GetSize(); ++i) {
        ++contents[{record.GetAt(i)->GetID(), record.GetAt(i)->GetText()}];
    }
    return contents;
}

void CheckRecord(CHoldingsDataRecord& record) {
    const auto contents = Contents(record);
    record.SortByTagAndSubfield();
    Expect(Contents(record) == contents, "a sort for output keeps all elements");
    const std::string sorted = fuzz::Store(record);
    record.SortByTagAndSubfield();
    Expect(fuzz::Store(record) == sorted, "a record that is sorted stays as it is");

    CHoldingsDataRecord clone;
    clone.CloneFrom(record);
    Expect(fuzz::Store(clone) == sorted, "a clone stores the same");
    Expect(clone.IsEqualTo(record), "a clone is equal");
    Expect(Contents(record) == contents, "a comparison keeps all elements");
    Expect(record.HasNoText() || record.GetMARCSize() > 0, "text has a size");
    clone.EmptyBarCode();
    Expect(clone.Get(HID_LWLP_BAR_CODE).empty(), "a bar code is gone");
}

void ChangeRecord(CHoldingsDataRecord& record, FuzzedDataProvider& data) {
    const EHOLDINGSID id = AnyID(data);
    const std::string text = data.ConsumeRandomLengthString(20);
    if (data.ConsumeBool()) {
        record.Set(id, text);
    } else if (record.GetSize() < kMostElements) {
        const int before = record.GetSize();
        record.Add(id, text, data.ConsumeBool(), 0);
        Expect(record.GetSize() <= before + 1, "one call adds one element");
    }
    CheckRecord(record);
}

void Change(CHoldingsDataRecordList& list, FuzzedDataProvider& data) {
    const int index = data.ConsumeIntegralInRange(-1, 12);
    switch (data.ConsumeIntegralInRange(0, 5)) {
        case 0:
            list.AddDuplicateAtEnd(index);
            break;
        case 1:
            list.Replace(index, std::make_unique<CHoldingsDataRecord>(HT_TYPE_1));
            break;
        case 2:
            list.DeleteByNumber(index);
            break;
        case 3:
            list.DeleteByPtr(list.GetAt(index));
            break;
        case 4:
            list.RemoveEmptyOnes();
            break;
        default:
            if (CHoldingsDataRecord* record = list.GetAt(index)) ChangeRecord(*record, data);
    }
    for (int i = 0; i < list.GetSize(); ++i) {
        Expect(!list.GetAt(i) || list.GetAt(i)->GetOwner() == &list, "a list owns its records");
    }
}

void PutTypeInForce(bool isFollett) {
    WriteZorbyProfileString(ZP_NewHoldings, std::string("EasyOrCustom=Easy\\\\HoldingsType=") +
                                                (isFollett ? "13" : "15") + "\\\\");
}

// Elements of one tag: letters, digits, places in a composed subfield, and a pair out of order.
void PutAFewElementsInForce() {
    constexpr std::pair<int, char> kElements[] = {{101, 'b'},  {202, 'a'}, {203, '1'}, {204, 2},
                                                  {407, '\1'}, {906, 'x'}, {907, 'a'}, {908, 'm'}};
    CInfoAboutHoldingsTypeList list;
    for (const EHOLDINGSTYPE number : {HT_FOLLETT_2, HT_TYPE_15}) {
        auto type = std::make_unique<CInfoAboutHoldingsType>();
        type->Create(std::to_string(number), number, 0, 0);
        for (const auto& [id, code] : kElements) {
            type->AddField("", 852, static_cast<std::int8_t>(code), '\0',
                           static_cast<EHOLDINGSID>(id), 0, "");
        }
        list.AddType(std::move(type));
    }
    fuzz::PutInForce(list);
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace zorby;
    if (!CInfoAboutHoldingsTypeList::TheOneAndOnly()) PutAFewElementsInForce();
    MemoryProfileFiles files;
    SetProfileFilePort(&files);
    ZorbyProfileChangeUserID(1);
    FuzzedDataProvider data(bytes, size);
    PutTypeInForce(data.ConsumeBool());
    CHoldingsDataRecordList list;
    fuzz::Load(data.ConsumeRandomLengthString(), list);
    fuzz::ExpectRoundTrip<CHoldingsDataRecordList>(list);
    while (data.remaining_bytes() > 0) Change(list, data);
    fuzz::ExpectRoundTrip<CHoldingsDataRecordList>(list);
    list.RemoveEmptyOnes();
    for (int i = 0; i < list.GetSize(); ++i) {
        fuzz::Expect(!list.GetAt(i)->HasNoText(), "only records with text are left");
    }
    SetProfileFilePort(nullptr);
    return 0;
}
