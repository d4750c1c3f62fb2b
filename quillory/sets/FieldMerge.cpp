#include <quillory/sets/FieldMerge.h>

#include <algorithm>
#include <map>
#include <set>
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

// Where a field of this tag goes.
Fields::iterator PlaceFor(std::string_view tag, Fields& fields) {
    const auto after = [&fields](auto isBefore) {
        return std::find_if(fields.rbegin(), fields.rend(), isBefore).base();
    };
    const auto same = after([tag](const CommFormatField& field) { return field.tag == tag; });
    if (same != fields.begin()) return same;
    return after([tag](const CommFormatField& field) { return field.tag < tag; });
}

void Insert(const Fields& others, Fields& fields) {
    if (others.empty()) return;
    fields.insert(PlaceFor(others.front().tag, fields), others.begin(), others.end());
}

// The fields of one tag by those of the other record, at the place of the first of them.
void Replace(const Fields& others, Fields& fields) {
    const std::string_view tag = others.front().tag;
    const auto first = std::ranges::find(fields, tag, &CommFormatField::tag);
    if (first == fields.end()) {
        Insert(others, fields);
        return;
    }
    const auto at = first - fields.begin();
    std::erase_if(fields, [tag](const CommFormatField& field) { return field.tag == tag; });
    fields.insert(fields.begin() + at, others.begin(), others.end());
}

void AddMissing(const Fields& others, Fields& fields) {
    std::set<std::string_view> known;
    for (const CommFormatField& field : fields) {
        if (field.tag == others.front().tag) known.insert(field.content);
    }
    Fields missing;
    for (const CommFormatField& other : others) {
        if (known.insert(other.content).second) missing.push_back(other);
    }
    Insert(missing, fields);
}

// The fields that are meant, those of one tag side by side, tags in the order in which they come.
std::vector<Fields> ByTag(const Record& record, const PlaceSet& which) {
    std::vector<Fields> byTag;
    std::map<std::string_view, std::size_t> known;
    for (const CommFormatField& field : record.fields) {
        if (!which.Covers(field.tag)) continue;
        const auto [at, isNew] = known.emplace(field.tag, byTag.size());
        if (isNew) byTag.emplace_back();
        byTag[at->second].push_back(field);
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
