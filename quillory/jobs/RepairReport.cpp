#include <quillory/jobs/RepairReport.h>

namespace quillory {

void RepairTotals::Count(const std::vector<Repair>& repairs) {
    std::uint64_t changes = 0;
    for (const Repair& repair : repairs) {
        switch (repair.kind) {
            case RepairKind::Replaced:
            case RepairKind::Length:
                ++changes;
                break;
            case RepairKind::Kept:
                ++kept;
                break;
            case RepairKind::Left:
                ++left;
                break;
        }
    }
    ++records;
    if (changes > 0) ++recordsRepaired;
    repaired += changes;
}

}  // namespace quillory
