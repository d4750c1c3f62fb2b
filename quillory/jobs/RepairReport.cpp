#include <quillory/jobs/RepairReport.h>

#include <algorithm>

namespace quillory {

void RepairTotals::Count(const std::vector<Repair>& repairs) {
    const auto count = [&repairs](auto... kinds) {
        return static_cast<std::uint64_t>(std::ranges::count_if(
            repairs, [&](const Repair& repair) { return ((repair.kind == kinds) || ...); }));
    };
    const std::uint64_t changes = count(RepairKind::Replaced, RepairKind::Length);
    ++records;
    if (changes > 0) ++recordsRepaired;
    repaired += changes;
    kept += count(RepairKind::Kept);
    left += count(RepairKind::Left);
}

}  // namespace quillory
