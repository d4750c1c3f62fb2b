#include <quillory/edits/Change.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/exchange/Mrk.h>
#include <quillory/places/Tag.h>

#include <algorithm>

namespace quillory {
namespace {

bool HaveSameCodes(const FieldParts& one, const FieldParts& other) {
    return std::ranges::equal(one.parts, other.parts, {}, CodeOf, CodeOf);
}

Change WholeField(const Place& field, std::string_view before, std::string_view after) {
    return {{}, field, WrittenField(field, before), WrittenField(field, after)};
}

// The positions from the first to the last byte that differs.
Change ChangeOfPositions(const Place& field, std::string_view before, std::string_view after) {
    std::size_t first = 0;
    while (before[first] == after[first]) ++first;
    std::size_t end = before.size();
    while (before[end - 1] == after[end - 1]) --end;
    const Place place = field.Positions(static_cast<int>(first), static_cast<int>(end) - 1);
    return {{},
            place,
            std::string(before.substr(first, end - first)),
            std::string(after.substr(first, end - first))};
}

void AddIndicators(const Place& field, std::string_view before, std::string_view after,
                   std::vector<Change>& changes) {
    for (std::size_t at = 0; at < kIndicators; ++at) {
        if (before[at] == after[at]) continue;
        changes.push_back({{},
                           field.Indicator(static_cast<int>(at) + 1),
                           std::string(1, before[at]),
                           std::string(1, after[at])});
    }
}

}  // namespace

std::vector<Change> ChangesOfField(const Place& field, std::string_view before,
                                   std::string_view after) {
    if (field.IsControl()) {
        const bool hasPositions = before.size() == after.size() && before != after;
        return {hasPositions ? ChangeOfPositions(field, before, after)
                             : WholeField(field, before, after)};
    }
    const FieldParts one = PartsOf(before);
    const FieldParts other = PartsOf(after);
    const bool isAlike = one.head.size() == kIndicators && other.head.size() == kIndicators &&
                         HaveSameCodes(one, other);
    if (!isAlike) return {WholeField(field, before, after)};
    std::vector<Change> changes;
    AddIndicators(field, one.head, other.head, changes);
    for (std::size_t i = 0; i < one.parts.size(); ++i) {
        if (one.parts[i] == other.parts[i]) continue;
        changes.push_back({{},
                           field.Subfield(CodeOf(one.parts[i])),
                           std::string(TextOf(one.parts[i])),
                           std::string(TextOf(other.parts[i]))});
    }
    return changes;
}

std::string WrittenField(const Place& field, std::string_view content) {
    if (field.IsControl()) return std::string(content);
    std::string line;
    AppendMrkField({field.Tag(), content}, line);
    constexpr std::size_t kLineHead = 6;  // "=245  "
    return line.substr(kLineHead, line.size() - kLineHead - 1);
}

}  // namespace quillory
