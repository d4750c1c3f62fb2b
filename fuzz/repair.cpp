#include <quillory/repair/RecordRepairer.h>

#include <fuzz/Home.h>

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

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    static const CodeLists lists = fuzz::LoadAll();
    RecordRepairer careful(lists, {});
    RecordRepairer strict(lists, {.strict = true});
    fuzz::ForEachRecord(data, size, [&](const Item& item) {
        fuzz::PutRight(careful, item.record);
        fuzz::PutRight(strict, item.record);
    });
    return 0;
}
