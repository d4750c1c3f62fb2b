#include <quillory/edits/EmptyField.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/edits/NewField.h>
#include <quillory/edits/RecordCopies.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/CompositeText.h>
#include <quillory/holdings/CopyFields.h>
#include <quillory/holdings/HoldingsFields.h>
#include <quillory/places/Tag.h>
#include <quillory/text/QmText.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

using zorby::CHoldingsDataRecord;
using zorby::CInfoAboutHoldingsField;
using zorby::CommFormatField;
using zorby::EHOLDINGSID;

// The copies of a record, and where each of their fields stands in it.
struct Read {
    CopiesOfRecord taken;
    std::vector<std::vector<std::size_t>> fields;
};

void ReadCopies(const RecordState& record, const HoldingsSystem& system, Read& read) {
    Record view;
    view.leader = record.leader;
    view.fields.reserve(record.fields.size());
    for (const auto& [tag, content, given] : record.fields) view.fields.push_back({tag, content});
    HoldingsFields(system, system).Take(view, read.taken);
    for (const auto& fields : read.taken.fields) {
        auto& indices = read.fields.emplace_back();
        indices.reserve(fields.size());
        for (const CommFormatField& field : fields) {
            const auto same =
                std::ranges::find(view.fields, field.content.data(),
                                  [](const auto& each) { return each.content.data(); });
            indices.push_back(static_cast<std::size_t>(same - view.fields.begin()));
        }
    }
}

const CHoldingsDataRecord& CopyAt(const Read& read, std::size_t copy) {
    return *read.taken.copies.GetAt(static_cast<int>(copy));
}

std::vector<std::string> ValuesOf(const CHoldingsDataRecord& copy, EHOLDINGSID id) {
    std::vector<std::string> values;
    for (int i = 0; i < copy.GetSize(); ++i) {
        if (copy.GetAt(i)->GetID() == id) values.push_back(copy.GetAt(i)->GetText());
    }
    return values;
}

std::string JoinedText(const std::vector<std::string>& values) {
    std::string text;
    for (const std::string& value : values) {
        if (!text.empty()) text += RecordCopies::kBetweenValues;
        text += value;
    }
    return text;
}

std::vector<std::string> Divided(std::string_view text) {
    constexpr std::string_view kSign = "¦";
    std::vector<std::string> values;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(kSign), text.size());
        const std::string_view value = Trimmed(text.substr(0, end));
        if (!value.empty()) values.emplace_back(value);
        text.remove_prefix(std::min(end + kSign.size(), text.size()));
    }
    return values;
}

std::string KeptText(const CHoldingsDataRecord& copy) {
    std::string text;
    for (const auto& [tag, code, kept] : copy.GetHolds()) {
        if (!text.empty()) text += RecordCopies::kBetweenValues;
        const Place place = Place::OfField(static_cast<unsigned>(tag)).Subfield(code);
        text.append(PlaceText(place)).append(" ").append(kept);
    }
    return text;
}

// False if there is no room for one of the values.
bool SetValues(EHOLDINGSID id, const std::vector<std::string>& values, CHoldingsDataRecord& copy) {
    std::size_t next = 0;
    for (int i = 0; i < copy.GetSize() && next < values.size(); ++i) {
        if (copy.GetAt(i)->GetID() == id) copy.GetAt(i)->SetText(values[next++]);
    }
    for (int i = copy.GetSize() - 1; i >= 0 && ValuesOf(copy, id).size() > values.size(); --i) {
        if (copy.GetAt(i)->GetID() == id) copy.DeleteElement(copy.GetAt(i));
    }
    if (next == values.size()) return true;
    for (; next < values.size(); ++next) {
        const int before = copy.GetSize();
        copy.Add(id, values[next], 1, 0);
        if (copy.GetSize() == before) return false;
    }
    copy.SortByTagAndSubfield();
    return true;
}

void Insert(RecordState& record, const CopyField& field) {
    const std::size_t place = PlaceOfNew(record, field.tag);
    record.fields.insert(record.fields.begin() + static_cast<std::ptrdiff_t>(place),
                         {field.tag, field.content, -1});
}

// Fields are written in the places of those that they were read from.
void WriteFields(const std::vector<CopyField>& made, std::vector<std::size_t> old,
                 RecordState& record) {
    for (const CopyField& field : made) {
        const auto same = std::ranges::find_if(
            old, [&](std::size_t index) { return record.fields[index].tag == field.tag; });
        if (same == old.end()) continue;
        record.fields[*same].content = field.content;
        old.erase(same);
    }
    std::ranges::sort(old, std::greater<>());
    for (const std::size_t index : old) {
        record.fields.erase(record.fields.begin() + static_cast<std::ptrdiff_t>(index));
    }
}

// The fields of a copy that has no elements any more, with the subfields that are none.
std::vector<CopyField> KeptFields(const CHoldingsDataRecord& copy,
                                  const std::vector<CommFormatField>& fields) {
    std::vector<CopyField> kept;
    for (const CommFormatField& field : fields) {
        const bool isThere = std::ranges::find(kept, field.tag, &CopyField::tag) != kept.end();
        std::string subfields;
        for (const auto& [tag, code, text] : copy.GetHolds()) {
            if (TagText(static_cast<unsigned>(tag)) == field.tag) subfields += Part(code, text);
        }
        if (isThere || subfields.empty()) continue;
        const std::string_view indicators = field.content.substr(0, kIndicators);
        kept.push_back({std::string(field.tag), std::string(indicators) + subfields});
    }
    return kept;
}

bool IsOnce(const HoldingsSystem& system, std::string_view tag) {
    return system.type->FieldIsOnePerRecord(TagNumber(tag));
}

}  // namespace

RecordCopies::RecordCopies(HoldingsSystem system) : system_(std::move(system)) {
    for (int i = 0; system_.HasElements() && i < system_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField& info = *system_.type->GetAt(i);
        const Place field = Place::OfField(info.GetTag());
        const char code = static_cast<char>(info.GetSubfield());
        elements_.push_back({info.GetHoldingsID(), QmToUtf8(info.GetName()),
                             QmToUtf8(info.GetHelpText()),
                             code > ' ' ? field.Subfield(code) : field});
    }
}

std::optional<std::size_t> RecordCopies::BarCode() const {
    const auto found = std::ranges::find(elements_, system_.Rules().barCode, &CopyElement::id);
    if (found == elements_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - elements_.begin());
}

std::vector<RecordCopies::Copy> RecordCopies::CopiesOf(const RecordState& record) const {
    Read read;
    ReadCopies(record, system_, read);
    std::vector<Copy> copies(read.fields.size());
    for (std::size_t i = 0; i < copies.size(); ++i) {
        const CHoldingsDataRecord& copy = CopyAt(read, i);
        copies[i].texts.reserve(elements_.size());
        for (const CopyElement& element : elements_) {
            copies[i].texts.push_back(JoinedText(ValuesOf(copy, element.id)));
        }
        copies[i].kept = KeptText(copy);
        copies[i].fields = read.fields[i];
    }
    return copies;
}

// Without a bar code, a subfield of it stands empty, so that there is a copy to fill in.
RecordState RecordCopies::WithNew(const RecordState& record, std::string_view barCode) const {
    RecordState changed = record;
    CHoldingsDataRecord copy(system_.id);
    if (!barCode.empty()) copy.Add(system_.Rules().barCode, barCode, 0, 0);
    const std::vector<CopyField> made = FieldsOfCopy(copy, system_, {});
    for (const CopyField& field : made) Insert(changed, field);
    if (!made.empty()) return changed;
    const auto barCodeAt = BarCode();
    const Place place = elements_[barCodeAt.value_or(0)].place;
    const std::string tag(place.Tag());
    const std::string content =
        place.code == '\0' ? EmptyField(tag) : std::string(kBlankIndicators) + Part(place.code, {});
    Insert(changed, {tag, content});
    return changed;
}

RecordState RecordCopies::WithOneLike(const RecordState& record, std::size_t copy,
                                      std::string_view barCode) const {
    Read read;
    ReadCopies(record, system_, read);
    if (copy >= read.fields.size()) return WithNew(record, barCode);
    CHoldingsDataRecord like;
    like.CloneFrom(CopyAt(read, copy));
    like.DeleteElement(system_.Rules().barCode);
    if (!barCode.empty()) {
        like.Add(system_.Rules().barCode, barCode, 0, 0);
        like.SortByTagAndSubfield();
    }
    RecordState changed = record;
    for (const CopyField& field : FieldsOfCopy(like, system_, read.taken.fields[copy])) {
        if (!IsOnce(system_, field.tag)) Insert(changed, field);
    }
    return changed;
}

RecordState RecordCopies::Without(const RecordState& record, std::size_t copy) const {
    Read read;
    ReadCopies(record, system_, read);
    RecordState changed = record;
    if (copy >= read.fields.size()) return changed;
    std::vector<std::size_t> fields = read.fields[copy];
    // What a record has once is that of the copies that stay.
    if (read.fields.size() > 1) {
        std::erase_if(fields,
                      [&](std::size_t index) { return IsOnce(system_, record.fields[index].tag); });
    }
    WriteFields({}, fields, changed);
    return changed;
}

RecordCopies::Outcome RecordCopies::WithText(const RecordState& record, std::size_t copy,
                                             std::size_t element, std::string_view text) const {
    Read read;
    ReadCopies(record, system_, read);
    Outcome outcome{record, {}};
    if (copy >= read.fields.size() || element >= elements_.size()) return outcome;
    const EHOLDINGSID id = elements_[element].id;
    if (text == JoinedText(ValuesOf(CopyAt(read, copy), id))) return outcome;
    const std::vector<std::string> values = Divided(text);
    const CInfoAboutHoldingsField& info = *system_.type->GetFieldInfo(id);
    const bool fits = std::ranges::all_of(
        values, [&](const std::string& value) { return FitsItsElement(info, value); });
    CHoldingsDataRecord changed;
    changed.CloneFrom(CopyAt(read, copy));
    if (!fits || !SetValues(id, values, changed)) {
        outcome.fault = Fault{FaultCode::kHoldingsNoRoom, {}, elements_[element].name};
        return outcome;
    }
    changed.RemoveEmptyElements();
    std::vector<CopyField> made = FieldsOfCopy(changed, system_, read.taken.fields[copy]);
    if (made.empty()) made = KeptFields(changed, read.taken.fields[copy]);
    WriteFields(made, read.fields[copy], outcome.record);
    for (const CopyField& field : made) {
        const bool isThere =
            std::ranges::find(read.taken.fields[copy], field.tag, &CommFormatField::tag) !=
            read.taken.fields[copy].end();
        if (!isThere) Insert(outcome.record, field);
    }
    return outcome;
}

}  // namespace quillory
