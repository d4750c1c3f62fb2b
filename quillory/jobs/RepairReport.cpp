#include <quillory/jobs/RepairReport.h>
#include <quillory/repair/TablePlace.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsLeft(const Repair& repair) {
    return repair.kind == RepairKind::Left;
}

std::string_view ElementNameOf(const Repair& repair) {
    return repair.element == nullptr ? std::string_view() : repair.element->name;
}

// Whether both are counted in one row. The place is a field, or positions in it; an element never
// has the same positions in two fields.
bool AreAlike(const Repair& a, const Repair& b) {
    return a.element == b.element && a.place.first == b.place.first &&
           a.place.last == b.place.last && a.repairClass == b.repairClass &&
           IsLeft(a) == IsLeft(b) && (a.element != nullptr || a.place.tag == b.place.tag);
}

// Mostly another one for what is not alike.
std::uint64_t HashOf(const Repair& repair) {
    constexpr std::uint64_t kFactor = 31;
    const auto first = static_cast<std::uint64_t>(repair.place.first);
    return first * kFactor + static_cast<std::uint64_t>(repair.repairClass);
}

}  // namespace

std::string GeneralPlace(const Repair& repair) {
    Place place = repair.place;
    place.occurrence = 0;
    return PlaceText(place);
}

RepairRow& RepairCounter::RowOf(const Repair& repair) {
    std::uint32_t& known = known_[TablePlace(repair.element, HashOf(repair), known_.size())];
    if (known < rows_.size() && AreAlike(rows_[known].first, repair)) return rows_[known];
    const auto row = std::ranges::find_if(
        rows_, [&](const RepairRow& other) { return AreAlike(other.first, repair); });
    known = static_cast<std::uint32_t>(row - rows_.begin());
    if (row == rows_.end()) rows_.push_back({repair});
    return rows_[known];
}

void RepairCounter::Count(const std::vector<Repair>& repairs) {
    std::uint64_t changes = 0;
    for (const Repair& repair : repairs) {
        ++(IsLeft(repair) ? numbers_.left : changes);
        if (hasRows_) ++RowOf(repair).count;
    }
    ++numbers_.records;
    if (changes > 0) ++numbers_.recordsRepaired;
    numbers_.repaired += changes;
}

void RepairCounter::Add(const RepairCounter& later) {
    numbers_.records += later.numbers_.records;
    numbers_.recordsRepaired += later.numbers_.recordsRepaired;
    numbers_.repaired += later.numbers_.repaired;
    numbers_.left += later.numbers_.left;
    for (const RepairRow& row : later.rows_) RowOf(row.first).count += row.count;
}

RepairTotals RepairCounter::Totals() const {
    RepairTotals totals{numbers_, {}};
    for (const RepairRow& row : rows_) {
        const Repair& first = row.first;
        std::string place = GeneralPlace(first) + " ";
        place += ElementNameOf(first);
        // Elements of several forms may have the same place and name.
        RepairRow& total = totals.rows[{first.repairClass, IsLeft(first), place}];
        if (total.count == 0) total.first = first;
        total.count += row.count;
    }
    return totals;
}

}  // namespace quillory
