#include <quillory/jobs/RepairReport.h>

#include <utility>

namespace quillory {

std::string GeneralPlace(const Repair& repair) {
    Place place = repair.place;
    place.occurrence = 0;
    return PlaceText(place);
}

std::size_t RepairCounter::HashOfKind::operator()(const Kind& kind) const {
    constexpr std::size_t kFactor = 31;
    auto hash = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(kind.element));
    hash = hash * kFactor + static_cast<std::size_t>(kind.repairClass);
    return hash * kFactor + static_cast<std::size_t>(kind.place.first);
}

RepairRow& RepairCounter::RowOf(const Repair& repair) {
    Kind kind{repair.repairClass, repair.kind == RepairKind::Left, repair.place, repair.element};
    kind.place.occurrence = 0;
    if (const auto known = known_.find(kind); known != known_.end()) return *known->second;
    const std::string name = repair.element == nullptr ? "" : repair.element->name;
    const RepairTotals::Key key{kind.repairClass, kind.isLeft, PlaceText(kind.place) + " " + name};
    RepairRow& row = totals_.rows.try_emplace(key, RepairRow{repair}).first->second;
    known_.emplace(kind, &row);
    return row;
}

void RepairTotals::Add(const RepairTotals& later) {
    records += later.records;
    recordsRepaired += later.recordsRepaired;
    repaired += later.repaired;
    left += later.left;
    for (const auto& [key, row] : later.rows) {
        const auto [mine, isNew] = rows.try_emplace(key, row);
        if (!isNew) mine->second.count += row.count;
    }
}

void RepairCounter::Count(const std::vector<Repair>& repairs) {
    std::uint64_t changes = 0;
    for (const Repair& repair : repairs) {
        ++(repair.kind == RepairKind::Left ? totals_.left : changes);
        ++RowOf(repair).count;
    }
    ++totals_.records;
    if (changes > 0) ++totals_.recordsRepaired;
    totals_.repaired += changes;
}

RepairTotals RepairCounter::TakeTotals() {
    known_.clear();
    return std::exchange(totals_, {});
}

}  // namespace quillory
