#include <quillory/repair/ChosenRepairs.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsIn(const Place& place, const Place& field) {
    return place.tag == field.tag &&
           std::max(place.occurrence, 1U) == std::max(field.occurrence, 1U);
}

void Apply(const Repair& repair, std::string& content) {
    if (repair.kind == RepairKind::Length) {
        content = repair.after;
        return;
    }
    if (repair.kind != RepairKind::Replaced || !repair.place.HasPositions()) return;
    const auto first = static_cast<std::size_t>(repair.place.first);
    if (first + repair.after.size() <= content.size()) {
        content.replace(first, repair.after.size(), repair.after);
    }
}

}  // namespace

std::string WithChosen(const std::vector<Repair>& repairs, const std::vector<bool>& chosen,
                       const Place& field, std::string_view given) {
    std::string content(given);
    for (std::size_t i = 0; i < repairs.size(); ++i) {
        if (chosen[i] && IsIn(repairs[i].place, field)) Apply(repairs[i], content);
    }
    return content;
}

}  // namespace quillory
