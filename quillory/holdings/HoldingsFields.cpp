#include <quillory/exchange/Subfields.h>
#include <quillory/holdings/CompositeText.h>
#include <quillory/holdings/HoldingsFields.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Marc8Escape.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace quillory {
namespace {

using zorby::CHoldingsDataRecord;
using zorby::CInfoAboutHoldingsField;
using zorby::CommFormatField;

constexpr std::size_t kMostFields = 2;  // of a copy

// The tags of the fields to which the elements go.
std::vector<int> TagsOfCopy(const CHoldingsDataRecord& copy) {
    std::vector<int> tags;
    for (int i = 0; i < copy.GetSize() && tags.size() < kMostFields; ++i) {
        const auto* info = zorby::CInfoAboutHoldingsTypeList::FindFromID(copy.GetAt(i)->GetID());
        const int tag = static_cast<int>(info->GetTag());
        if (std::ranges::count(tags, tag) == 0) tags.push_back(tag);
    }
    return tags;
}

// One text for several values, to be divided again where it is written.
bool Join(const CInfoAboutHoldingsField& info, std::string_view text, CHoldingsDataRecord& copy) {
    const char delimiter = info.GetRepeatDelimiter();
    if (text.find(delimiter) != text.npos) return false;
    std::string joined;
    zorby::CHoldingsDataElement* element = nullptr;
    copy.Get(info.GetHoldingsID(), joined, element);
    if (element == nullptr) {
        copy.Add(info.GetHoldingsID(), text, 1, 0);
        return true;
    }
    if (joined.empty() || text.empty()) return false;
    element->SetText(joined.append(1, delimiter).append(text));
    return true;
}

// What a composed subfield begins with: "FSC@".
std::string Opening(const zorby::HoldingsComposite& composite) {
    std::string opening = composite.opening;
    if (composite.partStart != 0) opening += composite.partStart;
    return opening;
}

// The parts of a composed subfield after its opening. The byte that starts each part stands between
// the parts then, as does the one that ends each, which the last part may lack.
std::vector<std::string_view> Parts(const zorby::HoldingsComposite& composite,
                                    std::string_view text) {
    std::vector<std::string_view> parts;
    const bool endsParts = composite.partEnd != 0;
    if (endsParts && text.empty()) return parts;
    if (endsParts && text.back() == composite.partEnd) text.remove_suffix(1);
    const char between = endsParts ? composite.partEnd : composite.partStart;
    for (;;) {
        const std::size_t end = std::min(text.find(between), text.size());
        parts.push_back(text.substr(0, end));
        if (end == text.size()) return parts;
        text.remove_prefix(end + 1);
    }
}

}  // namespace

bool HoldingsFields::IsTaken(const CommFormatField& field) const {
    return from_.HasElements() && from_.HasTag(field.tag) && field.content.size() > kIndicators &&
           ShapeOf(field) == kDataShape;
}

void HoldingsFields::Take(const Record& record, CopiesOfRecord& taken) const {
    std::vector<CommFormatField> fields;
    std::ranges::copy_if(record.fields, std::back_inserter(fields),
                         [this](const auto& field) { return IsTaken(field); });
    // A field that a record has once goes with the first copy.
    const auto isOnce = [this](const CommFormatField& field) {
        return from_.type->FieldIsOnePerRecord(TagNumber(field.tag));
    };
    const auto once = std::ranges::find_if(fields, isOnce);
    const auto first = std::ranges::find_if_not(fields, isOnce);
    if (once != fields.end() && first != fields.end()) {
        TakeCopy({*first, *once}, taken);
        fields.erase(std::max(once, first));
        fields.erase(std::min(once, first));
    }
    std::vector<std::vector<CommFormatField>> byTag;
    for (const CommFormatField& field : fields) {
        const auto same = std::ranges::find_if(
            byTag, [&](const auto& others) { return others.front().tag == field.tag; });
        if (same == byTag.end()) {
            byTag.push_back({field});
        } else {
            same->push_back(field);
        }
    }
    const bool inPairs = byTag.size() == 2 && byTag[0].size() == byTag[1].size();
    for (std::size_t i = 0; i < (inPairs ? byTag[0].size() : fields.size()); ++i) {
        if (inPairs) {
            TakeCopy({byTag[0][i], byTag[1][i]}, taken);
        } else {
            TakeCopy({fields[i]}, taken);
        }
    }
}

void HoldingsFields::TakeCopy(const std::vector<CommFormatField>& fields,
                              CopiesOfRecord& taken) const {
    CopyInHand copy{*taken.copies.AddEmptyAtEnd(to_.id), {}};
    taken.fields.push_back(fields);
    for (const CommFormatField& field : fields) {
        const int tag = std::stoi(std::string(field.tag));
        ForEachSubfield(field.content, [&](char code, std::string_view text) {
            TakeSubfield(tag, {code, text}, copy);
        });
    }
    std::vector<int> tags = TagsOfCopy(copy.elements);
    CHoldingsDataRecord* third = nullptr;
    for (const auto& [tag, code, text] : copy.kept) {
        if (std::ranges::count(tags, tag) == 0 && tags.size() < kMostFields) tags.push_back(tag);
        const bool hasField = std::ranges::count(tags, tag) != 0;
        if (!hasField && third == nullptr) {
            third = taken.copies.AddEmptyAtEnd(to_.id);
            taken.fields.push_back(fields);
        }
        (hasField ? copy.elements : *third).AddHoldingItemHold(tag, code, text);
    }
}

void HoldingsFields::TakeSubfield(int tag, const Subfield& subfield, CopyInHand& copy) const {
    // After an escape a byte may be part of another character.
    const bool isPlain = subfield.text.find(kEscape) == subfield.text.npos;
    if (isPlain && (TakeLabelled(tag, subfield, copy) || TakeComposite(tag, subfield, copy) ||
                    TakeElement(Find(tag, subfield.code), subfield.text, copy))) {
        return;
    }
    copy.kept.push_back({tag, subfield.code, std::string(subfield.text)});
}

bool HoldingsFields::TakeElement(const CInfoAboutHoldingsField* info, std::string_view text,
                                 CopyInHand& copy) const {
    const CInfoAboutHoldingsField* target = info != nullptr ? Target(*info) : nullptr;
    if (target == nullptr || !FitsItsElement(*target, text)) return false;
    if (target->GetRepeatDelimiter() != 0) return Join(*target, text, copy.elements);
    const int before = copy.elements.GetSize();
    copy.elements.Add(target->GetHoldingsID(), text, 1, 0);
    return copy.elements.GetSize() > before;
}

// An element that shares its subfield with others is known by its label.
bool HoldingsFields::TakeLabelled(int tag, const Subfield& subfield, CopyInHand& copy) const {
    const std::string_view label = rules_.label.text;
    if (label.empty() || subfield.code != rules_.label.code || !subfield.text.starts_with(label)) {
        return false;
    }
    const CInfoAboutHoldingsField* info = from_.type->GetFieldInfo(rules_.label.id);
    const bool isItsPlace = info != nullptr && static_cast<int>(info->GetTag()) == tag &&
                            info->GetSubfield() == subfield.code;
    return isItsPlace && TakeElement(info, subfield.text.substr(label.size()), copy);
}

// Parts that are not elements of both systems are kept in a subfield of the same form: together
// after the opening, or each by itself where there is none.
bool HoldingsFields::TakeComposite(int tag, const Subfield& subfield, CopyInHand& copy) const {
    const zorby::HoldingsComposite* composite = rules_.composite;
    if (composite == nullptr || subfield.code != composite->code) return false;
    const std::string opening = Opening(*composite);
    if (!subfield.text.starts_with(opening)) return false;
    std::string left;
    for (const std::string_view part : Parts(*composite, subfield.text.substr(opening.size()))) {
        if (TakePart(tag, part, copy)) continue;
        if (opening.empty()) {
            copy.kept.push_back({tag, subfield.code, std::string(part)});
        } else {
            left += composite->partStart;
            left += part;
        }
    }
    if (!left.empty()) copy.kept.push_back({tag, subfield.code, composite->opening + left});
    return true;
}

// Such as "aFIC" or "Funds:Gift".
bool HoldingsFields::TakePart(int tag, std::string_view part, CopyInHand& copy) const {
    for (int i = 0; i < from_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField& info = *from_.type->GetAt(i);
        const int place = static_cast<unsigned char>(info.GetSubfield());
        const bool isPlace = 0 < place && place < ' ';
        if (!isPlace || static_cast<int>(info.GetTag()) != tag) continue;
        const std::string lead = rules_.composite->lead(place);
        if (lead.empty() || !part.starts_with(lead)) continue;
        return TakeElement(&info, part.substr(lead.size()), copy);
    }
    return false;
}

// The element of a subfield without a label.
const CInfoAboutHoldingsField* HoldingsFields::Find(int tag, char code) const {
    for (int i = 0; i < from_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField& info = *from_.type->GetAt(i);
        if (static_cast<int>(info.GetTag()) != tag || info.GetSubfield() != code) continue;
        const zorby::HoldingsLabel& label = rules_.label;
        if (label.id != info.GetHoldingsID() || label.code != code) return &info;
    }
    return nullptr;
}

const CInfoAboutHoldingsField* HoldingsFields::Target(const CInfoAboutHoldingsField& info) const {
    if (to_.type == from_.type) return &info;
    if (to_.type == nullptr) return nullptr;
    for (int i = 0; i < to_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField* target = to_.type->GetAt(i);
        if (target->GetName() == info.GetName()) return target;
    }
    // Systems have another name for it where it may come in parts.
    const bool isCallNumber = info.GetHoldingsID() == rules_.callNumber.Whole();
    return isCallNumber ? to_.type->GetFieldInfo(to_.Rules().callNumber.Whole()) : nullptr;
}

}  // namespace quillory
