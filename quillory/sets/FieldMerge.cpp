#include <quillory/sets/FieldMerge.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

using zorby::CommFormatField;
using Fields = std::vector<CommFormatField>;

bool AreEqual(const CommFormatField& one, const CommFormatField& other) {
    return one.tag == other.tag && one.content == other.content;
}

bool HasTag(const Fields& fields, std::string_view tag) {
    return std::ranges::find(fields, tag, &CommFormatField::tag) != fields.end();
}

Fields OfTag(const Fields& fields, std::string_view tag) {
    Fields found;
    std::ranges::copy_if(fields, std::back_inserter(found),
                         [tag](const CommFormatField& field) { return field.tag == tag; });
    return found;
}

// Where a field of this tag goes.
Fields::iterator PlaceFor(std::string_view tag, Fields& fields) {
    const auto after = [&fields](auto isBefore) {
        return std::find_if(fields.rbegin(), fields.rend(), isBefore).base();
    };
    const auto same = after([tag](const CommFormatField& field) { return field.tag == tag; });
    if (same != fields.begin()) return same;
    return after([tag](const CommFormatField& field) { return field.tag < tag; });
}

void Add(const CommFormatField& field, Fields& fields) {
    fields.insert(PlaceFor(field.tag, fields), field);
}

// The fields of one tag by those of the other record, at the place of the first of them.
void Replace(const Fields& others, Fields& fields) {
    const std::string_view tag = others.front().tag;
    const auto first = std::ranges::find(fields, tag, &CommFormatField::tag);
    if (first == fields.end()) {
        for (const CommFormatField& field : others) Add(field, fields);
        return;
    }
    const auto at = first - fields.begin();
    std::erase_if(fields, [tag](const CommFormatField& field) { return field.tag == tag; });
    fields.insert(fields.begin() + at, others.begin(), others.end());
}

void AddMissing(const Fields& others, Fields& fields) {
    for (const CommFormatField& other : others) {
        const bool isThere = std::ranges::any_of(
            fields, [&other](const CommFormatField& field) { return AreEqual(field, other); });
        if (!isThere) Add(other, fields);
    }
}

// The fields that are meant, those of one tag side by side, tags in the order in which they come.
std::vector<Fields> ByTag(const Record& record, const PlaceSet& which) {
    std::vector<Fields> byTag;
    for (const CommFormatField& field : record.fields) {
        const bool isNew = std::ranges::none_of(
            byTag, [&field](const Fields& known) { return known.front().tag == field.tag; });
        if (isNew && which.Covers(field.tag)) byTag.push_back(OfTag(record.fields, field.tag));
    }
    return byTag;
}

}  // namespace

bool MergeFields(Record& record, const Record& other, const PlaceSet& which, MergeMode mode) {
    Fields fields = record.fields;
    for (const Fields& others : ByTag(other, which)) {
        if (mode == MergeMode::Replace) {
            Replace(others, fields);
        } else if (mode == MergeMode::Add || !HasTag(fields, others.front().tag)) {
            AddMissing(others, fields);
        }
    }
    if (std::ranges::equal(fields, record.fields, AreEqual)) return false;
    record.fields.swap(fields);
    record.bytes = {};
    return true;
}

}  // namespace quillory
