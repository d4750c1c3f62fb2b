#include <quillory/edits/Operation.h>
#include <quillory/queries/Values.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsOfMaterial(EditedRecord& record, std::size_t index, const PlacePattern& pattern) {
    if (pattern.place.material == '\0') return true;
    PlacePattern field = pattern;
    field.place.first = field.place.last = -1;
    ValueSlice unused;
    return values::SliceOf(field, record.Leader(), {record.TagOf(index), record.ContentOf(index)},
                           unused);
}

}  // namespace

std::vector<std::size_t> FieldsOf(EditedRecord& record, const PlacePattern& pattern,
                                  const FieldFilter& isMeant) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < record.Size(); ++i) {
        if (!pattern.Covers(record.TagOf(i))) continue;
        const std::uint32_t wanted = pattern.place.occurrence;
        if (wanted != 0 && record.PlaceOf(i).occurrence != wanted) continue;
        if (!IsOfMaterial(record, i, pattern)) continue;
        if (!isMeant || isMeant(i)) found.push_back(i);
    }
    return found;
}

void RemoveFields(EditedRecord& record, const std::vector<std::size_t>& indices) {
    for (std::size_t i = indices.size(); i > 0; --i) record.Remove(indices[i - 1]);
}

void InsertField(EditedRecord& record, std::string_view tag, std::string content) {
    std::size_t at = record.Size();
    for (std::size_t i = record.Size(); i > 0; --i) {
        if (record.TagOf(i - 1) == tag) {
            at = i;
            break;
        }
        if (record.TagOf(i - 1) > tag) at = i - 1;
    }
    record.Insert(at, tag, std::move(content));
}

bool HasField(EditedRecord& record, std::string_view tag, std::string_view content) {
    for (std::size_t i = 0; i < record.Size(); ++i) {
        if (record.TagOf(i) == tag && record.ContentOf(i) == content) return true;
    }
    return false;
}

}  // namespace quillory
