#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/conditions/ZorbySearch.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {
namespace {

using fuzz::Expect;

std::string Saved(COnlyWhenState& state) {
    std::string text;
    state.SaveState(text);
    return text;
}

// A text that a packed text can hold.
std::string TakeValue(FuzzedDataProvider& data) {
    std::string value = data.ConsumeRandomLengthString(20);
    for (std::size_t i = 0; (i = value.find("\\\\", i)) != std::string::npos;) value.erase(i, 1);
    return value;
}

OnlyWhenTest TakeTest(FuzzedDataProvider& data) {
    return {data.ConsumeBool(),
            data.ConsumeIntegral<char>(),
            static_cast<EHOLDINGSID>(data.ConsumeIntegralInRange(-1, 4)),
            static_cast<CONTAIN_TYPE>(data.ConsumeIntegralInRange(-1, 4)),
            TakeValue(data),
            data.ConsumeBool()};
}

bool AreEqual(const OnlyWhenTest& a, const OnlyWhenTest& b) {
    return a.anySubfield == b.anySubfield && a.subfield == b.subfield &&
           a.holdingsID == b.holdingsID && a.containType == b.containType &&
           a.containsText == b.containsText && a.matchCase == b.matchCase;
}

void CheckRoundTrip(FuzzedDataProvider& data) {
    COnlyWhenState state;
    state.tagText = TakeValue(data);
    state.onlyWhen = data.ConsumeBool();
    state.first = TakeTest(data);
    state.advanced = data.ConsumeBool();
    state.second = TakeTest(data);
    state.bothConditions = data.ConsumeBool();
    const std::string text = Saved(state);
    COnlyWhenState read;
    read.InitializeOnlyWhenState("", text);
    Expect(read.tagText == state.tagText && read.onlyWhen == state.onlyWhen &&
               read.advanced == state.advanced && read.bothConditions == state.bothConditions,
           "a condition comes back");
    Expect(AreEqual(read.first, state.first) && AreEqual(read.second, state.second),
           "the tests of a condition come back");
    Expect(Saved(read) == text, "a condition that was read packs into the same text");
}

void CheckOpposites(const CHoldingsDataRecord& record, const OnlyWhenTest& test) {
    for (const auto& [one, other] : {std::pair(CT_CONTAINS, CT_DOES_NOT_CONTAIN),
                                     std::pair(CT_EMPTY_OR_MISSING, CT_NOT_EMPTY)}) {
        const auto meets = [&, &record = record](CONTAIN_TYPE type) {
            return record.OnlyWhenRecordMeetsCondition(test.anySubfield, test.matchCase,
                                                       test.containsText, type, test.holdingsID);
        };
        Expect(meets(one) + meets(other) == 1, "one of two opposite tests holds");
    }
}

void CheckRecord(FuzzedDataProvider& data) {
    CHoldingsDataRecord record(HT_FOLLETT);
    for (int left = data.ConsumeIntegralInRange(0, 8); left > 0; --left) {
        record.Add(static_cast<EHOLDINGSID>(data.ConsumeIntegralInRange(200, 208)),
                   data.ConsumeRandomLengthString(10), 1, 0);
    }
    COnlyWhenState state;
    state.InitializeOnlyWhenState(TakeValue(data), data.ConsumeRandomLengthString(80));
    state.onlyWhen = true;
    Expect(Saved(state) == Saved(state), "a state packs into the same text each time");
    std::string sentence;
    state.MakeLongString(sentence, 1, 1, 1);
    Expect(sentence.starts_with("<<Only When: ") && sentence.ends_with(">>"),
           "a sentence is whole");
    CheckOpposites(record, state.first);
    CheckOpposites(record, state.second);
    state.bothConditions = true;
    const bool both = record.OnlyWhenRecord(state) != nullptr;
    state.bothConditions = false;
    Expect(!both || record.OnlyWhenRecord(state), "where both tests hold, one of them does");

    const std::string from = data.ConsumeRandomLengthString(30);
    const std::string to = data.ConsumeRandomLengthString(30);
    const std::vector<std::string> texts = {Saved(state), data.ConsumeRandomLengthString(30)};
    const int size = record.GetSize();
    const auto changed = record.ChangeElementsNewDR(from, to, texts, data.ConsumeBool());
    Expect(record.GetSize() == size, "a change makes a record of its own");
    Expect(!changed || !changed->IsEqualTo(record), "a record that is returned has changed");
}

void CheckSearch(FuzzedDataProvider& data) {
    CZorbySearch search;
    search.m_strTree = data.ConsumeRandomLengthString(40);
    const std::size_t length = search.m_strTree.size();
    search.m_strUser = data.ConsumeRandomLengthString(40);
    const bool isEmpty = search.m_strUser.empty();
    search.PrepareForSearch();
    Expect(search.m_strTree.size() == length, "the tree's text keeps its length");
    Expect(search.m_strUser.empty() == isEmpty, "typed tags don't vanish");
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    switch (data.ConsumeIntegralInRange(0, 2)) {
        case 0:
            zorby::CheckRoundTrip(data);
            break;
        case 1:
            zorby::CheckRecord(data);
            break;
        default:
            zorby::CheckSearch(data);
    }
    return 0;
}
