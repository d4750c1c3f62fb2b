#include <quillory/jobs/RepairReport.h>

namespace quillory {

std::string GeneralPlace(const Repair& repair) {
    Place place = repair.place;
    place.occurrence = 0;
    return PlaceText(place);
}

void RepairTotals::Count(const std::vector<Repair>& repairs) {
    std::uint64_t changes = 0;
    for (const Repair& repair : repairs) {
        const bool isLeft = repair.kind == RepairKind::Left;
        ++(isLeft ? left : changes);
        const std::string name = repair.element == nullptr ? "" : repair.element->name;
        const Key key{repair.repairClass, isLeft, GeneralPlace(repair) + " " + name};
        RepairRow& row = rows.try_emplace(key, RepairRow{repair}).first->second;
        ++row.count;
    }
    ++records;
    if (changes > 0) ++recordsRepaired;
    repaired += changes;
}

}  // namespace quillory
