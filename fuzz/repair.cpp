#include <quillory/repair/RecordRepairer.h>

#include <functional>
#include <fuzz/Home.h>
#include <optional>
#include <string_view>

namespace quillory::fuzz {
namespace {

CodeLists LoadAll() {
    PutAllInForce();
    return LoadCodeLists();
}

bool IsCoded(std::string_view tag) {
    return tag == "006" || tag == "007" || tag == "008";
}

void CheckOtherFields(const Copy& before, const Record& after) {
    Expect(before.fields.size() == after.fields.size(), "no field comes or goes");
    for (std::size_t i = 0; i < before.fields.size(); ++i) {
        const auto& [tag, content] = before.fields[i];
        Expect(tag == after.fields[i].tag, "fields keep their order");
        Expect(IsCoded(tag) || content == after.fields[i].content, "other fields stay");
    }
    Expect(after.leader.size() == before.leader.size(), "a leader keeps its length");
}

void PutRight(RecordRepairer& repairer, Record record) {
    const Copy before(record);
    repairer.PutRight(record);
    CheckOtherFields(before, record);
    const Copy repaired(record);
    Record again = repaired.View();
    for (const Repair& repair : repairer.PutRight(again)) {
        Expect(repair.kind == RepairKind::Left, "a second repair changes nothing");
    }
    Expect(Copy(again) == repaired, "a second repair leaves the record as it is");
}

// What a repairer remembers of other records makes no difference.
void CompareWithFresh(RecordRepairer& used, RecordRepairer& fresh, Record record) {
    Record same = record;
    used.PutRight(record);
    fresh.PutRight(same);
    Expect(Copy(record) == Copy(same), "a record is repaired as if it were the first");
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    constexpr std::size_t kComparedOnce = 16;  // in so many texts; to begin anew takes long
    static const CodeLists lists = fuzz::LoadAll();
    static RecordRepairer careful(lists, {});
    static RecordRepairer strict(lists, {.strict = true});
    std::optional<RecordRepairer> fresh;
    const std::size_t hash = std::hash<std::string_view>{}(fuzz::TextOf(data, size));
    if (hash % kComparedOnce == 0) fresh.emplace(lists, RepairOptions{});
    fuzz::ForEachRecord(data, size, [&](const Item& item) {
        fuzz::PutRight(careful, item.record);
        fuzz::PutRight(strict, item.record);
        if (fresh) fuzz::CompareWithFresh(careful, *fresh, item.record);
    });
    return 0;
}
