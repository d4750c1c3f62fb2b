#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/DefaultTexts.h>
#include <quillory/jobs/WorkformCatalog.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

struct Subfield {
    unsigned tag = 0;  // 0 in all but the first subfield of a field
    char firstIndicator = '\0';
    char secondIndicator = '\0';
    char code = '\0';
    std::string text;
};
using Subfields = std::vector<Subfield>;

Subfields SubfieldsOf(const zorby::CInfoAboutDefaultDataList& list) {
    Subfields subfields;
    for (int i = 0; i < list.GetSize(); ++i) {
        const zorby::CInfoAboutDefaultData& data = *list.GetAt(i);
        subfields.push_back({data.GetTag(), data.GetIndicatorRaw(1), data.GetIndicatorRaw(2),
                             data.GetSubCode(), data.GetDefaultData()});
    }
    return subfields;
}

void Store(const Subfields& subfields, zorby::CInfoAboutDefaultDataList& list) {
    list.RemoveAll();
    for (const Subfield& subfield : subfields) {
        if (subfield.tag == 0) {
            list.AddDefaultData(subfield.code, subfield.text);
        } else {
            list.AddDefaultData(subfield.tag, subfield.firstIndicator, subfield.secondIndicator,
                                subfield.code, subfield.text);
        }
    }
}

void Check(const Entry& entry) {
    if (entry.kind != EntryKind::Subfield) {
        throw UsageError({FaultCode::kNotADefaultText, entry.place});
    }
    if (zorby::CTemplate::IsAnyValidSubfield(entry.place.code) == 0) {
        throw UsageError({FaultCode::kNotASubfieldCode, entry.place, {entry.place.code}});
    }
}

// The first subfield of a new field, with the indicators that such a field has.
Subfield FieldOf(const zorby::CTemplate& workform, unsigned tag) {
    const auto indicator = [&](int which) {
        const char value = workform.FieldIndicator(tag, which);
        return value == '\0' ? '_' : value;
    };
    return {tag, indicator(1), indicator(2), '\0', {}};
}

// The first subfield of the field that the entry names, which is added if it comes next.
Subfields::iterator FindField(const Entry& entry, const zorby::CTemplate& workform,
                              Subfields& subfields) {
    const std::uint32_t wanted = std::max(entry.place.occurrence, 1U);
    std::uint32_t count = 0;
    const auto field = std::ranges::find_if(subfields, [&](const Subfield& subfield) {
        return subfield.tag == entry.Tag() && ++count == wanted;
    });
    if (field != subfields.end()) return field;
    if (count + 1 < wanted) {
        throw UsageError({FaultCode::kTooFewFields, entry.place, std::to_string(count)});
    }
    const auto next = std::ranges::find_if(
        subfields, [&](const Subfield& subfield) { return subfield.tag > entry.Tag(); });
    return subfields.insert(next, FieldOf(workform, entry.Tag()));
}

// The subfield of a code, which is added at the end of the field if it has none.
Subfield& SubfieldIn(Subfields::iterator field, char code, Subfields& subfields) {
    if (field->code == '\0') field->code = code;
    const auto end = std::find_if(field + 1, subfields.end(),
                                  [](const Subfield& subfield) { return subfield.tag != 0; });
    const auto known =
        std::find_if(field, end, [code](const Subfield& other) { return other.code == code; });
    if (known != end) return *known;
    Subfield subfield;
    subfield.code = code;
    return *subfields.insert(end, subfield);
}

}  // namespace

void SetDefaultText(const Entry& entry, zorby::CTemplate& workform) {
    Check(entry);
    const std::string text = WorkformText(entry.subfields.front().text);
    Subfields subfields = SubfieldsOf(workform.GetDefaultData());
    const auto field = FindField(entry, workform, subfields);
    SubfieldIn(field, entry.place.code, subfields).text = text;
    Store(subfields, workform.GetDefaultData());
}

}  // namespace quillory
