#include <quillory/exchange/Subfields.h>
#include <quillory/holdings/HoldingsFields.h>
#include <zorby/copies/HoldingsDelimiters.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace quillory {
namespace {

using zorby::CHoldingsDataRecord;
using zorby::CInfoAboutHoldingsField;
using zorby::CommFormatField;

constexpr char kEscape = 0x1B;  // other bytes may be parts of characters behind it
constexpr std::size_t kIndicators = 2;
constexpr std::size_t kMostFields = 2;  // of a copy

bool IsFollett(zorby::EHOLDINGSTYPE type) {
    return type == zorby::HT_FOLLETT || type == zorby::HT_FOLLETT_2 ||
           type == zorby::HT_FOLLETT_UNISON;
}

bool IsFund(const CInfoAboutHoldingsField& info) {
    return info.GetHoldingsID() == zorby::HID_FOLLETT_FUND ||
           info.GetHoldingsID() == zorby::HID_FOLLETT_UNISON_FUND;
}

// Systems name it otherwise where it may stand in parts.
bool TakesCallNumber(const CInfoAboutHoldingsField& info) {
    using namespace zorby;
    static constexpr EHOLDINGSID kCallNumbers[] = {
        HID_TYPE_1_CALL_NUMBER,  HID_TYPE_2_CALL_NUMBER,         HID_FOLLETT_CALL_NUMBER,
        HID_TYPE_4_CALL_NUMBER,  HID_FOLLETT_UNISON_CALL_NUMBER, HID_TYPE_5_CALL_NUMBER,
        HID_DYNIX_CALL_NUMBER,   HID_LWLP_CALL_NUMBER,           HID_TYPE_6_CALL_NUMBER,
        HID_TYPE_11_CALL_NUMBER, HID_TYPE_12_CALL_NUMBER,        HID_ALEXANDRIA_CALL_NUMBER,
    };
    return std::ranges::count(kCallNumbers, info.GetHoldingsID()) != 0;
}

// Of the fields to which the elements go.
std::vector<int> TagsOf(const CHoldingsDataRecord& copy) {
    std::vector<int> tags;
    for (int i = 0; i < copy.GetSize() && tags.size() < kMostFields; ++i) {
        const auto* info = zorby::CInfoAboutHoldingsTypeList::FindFromID(copy.GetAt(i)->GetID());
        const int tag = static_cast<int>(info->GetTag());
        if (std::ranges::count(tags, tag) == 0) tags.push_back(tag);
    }
    return tags;
}

bool IsMadeOfSubfields(std::string_view content) {
    return content.size() > kIndicators && content[kIndicators] == zorby::kDelimiter &&
           content.back() != zorby::kDelimiter;
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

}  // namespace

bool HoldingsFields::IsTaken(const CommFormatField& field) const {
    return from_.HasElements() && from_.HasTag(field.tag) && IsMadeOfSubfields(field.content);
}

void HoldingsFields::Take(const Record& record, CopiesOfRecord& taken) const {
    std::vector<CommFormatField> fields;
    std::ranges::copy_if(record.fields, std::back_inserter(fields),
                         [this](const auto& field) { return IsTaken(field); });
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
    std::vector<int> tags = TagsOf(copy.elements);
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
    const bool isPlain = subfield.text.find(kEscape) == subfield.text.npos;
    if (isPlain && (TakeFund(tag, subfield, copy) || TakeFollett(tag, subfield, copy) ||
                    TakeAlexandria(tag, subfield, copy) ||
                    TakeElement(Find(tag, subfield.code), subfield.text, copy))) {
        return;
    }
    copy.kept.push_back({tag, subfield.code, std::string(subfield.text)});
}

bool HoldingsFields::TakeElement(const CInfoAboutHoldingsField* info, std::string_view text,
                                 CopyInHand& copy) const {
    const CInfoAboutHoldingsField* target = info != nullptr ? Target(*info) : nullptr;
    if (target == nullptr) return false;
    if (target->GetRepeatDelimiter() != 0) return Join(*target, text, copy.elements);
    const int before = copy.elements.GetSize();
    copy.elements.Add(target->GetHoldingsID(), text, 1, 0);
    return copy.elements.GetSize() > before;
}

// A fund shares its subfield with notes, and says what it is.
bool HoldingsFields::TakeFund(int tag, const Subfield& subfield, CopyInHand& copy) const {
    constexpr std::string_view kLabel = zorby::kpHoldingsFundLabel;
    if (!IsFollett(from_.id) || !subfield.text.starts_with(kLabel)) return false;
    for (int i = 0; i < from_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField& info = *from_.type->GetAt(i);
        if (!IsFund(info) || static_cast<int>(info.GetTag()) != tag) continue;
        if (info.GetSubfield() != subfield.code) continue;
        return TakeElement(&info, subfield.text.substr(kLabel.size()), copy);
    }
    return false;
}

// "FSC@aFIC@bJUV". What is no element of both systems stays behind in a subfield of the same form.
bool HoldingsFields::TakeFollett(int tag, const Subfield& subfield, CopyInHand& copy) const {
    const std::string marker = zorby::kpFollettSubXMarker;
    std::string_view rest = subfield.text;
    if (!IsFollett(from_.id) || subfield.code != 'x' ||
        !rest.starts_with(marker + zorby::kcFollettSubXDelimiter)) {
        return false;
    }
    rest.remove_prefix(marker.size());
    std::string left;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(zorby::kcFollettSubXDelimiter, 1), rest.size());
        const std::string_view part = rest.substr(0, end);
        const int place = part.size() > 1 ? part[1] - zorby::kFollettLetterOffset : 0;
        const bool isPlace = 0 < place && place < ' ';
        if (!isPlace || !TakeElement(Find(tag, place), part.substr(2), copy)) left += part;
        rest.remove_prefix(end);
    }
    if (!left.empty()) copy.kept.push_back({tag, subfield.code, marker + left});
    return true;
}

// "Funds:Gift|Vendor:Acme|". What is no element of both systems goes on as it is.
bool HoldingsFields::TakeAlexandria(int tag, const Subfield& subfield, CopyInHand& copy) const {
    if (from_.id != zorby::HT_ALEXANDRIA || subfield.code != '1') return false;
    for (std::string_view rest = subfield.text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(zorby::kcHoldingsDelimiter), rest.size());
        std::string_view text = rest.substr(0, end);
        const CInfoAboutHoldingsField* info = Labelled(tag, text);
        if (!TakeElement(info, text, copy)) {
            copy.kept.push_back({tag, subfield.code, std::string(rest.substr(0, end))});
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return true;
}

// The element whose label stands before the text, without which the text is left then.
const CInfoAboutHoldingsField* HoldingsFields::Labelled(int tag, std::string_view& text) const {
    for (int i = 0; i < from_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField& info = *from_.type->GetAt(i);
        const char* label = zorby::AlexandriaLabel(info.GetSubfield());
        if (label == nullptr || static_cast<int>(info.GetTag()) != tag) continue;
        if (!text.starts_with(label)) continue;
        text.remove_prefix(std::string_view(label).size());
        return &info;
    }
    return nullptr;
}

// Funds are not found: they say what they are.
const CInfoAboutHoldingsField* HoldingsFields::Find(int tag, int subfield) const {
    for (int i = 0; i < from_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField& info = *from_.type->GetAt(i);
        if (static_cast<int>(info.GetTag()) != tag || info.GetSubfield() != subfield) continue;
        if (subfield != 'x' || !IsFund(info)) return &info;
    }
    return nullptr;
}

const CInfoAboutHoldingsField* HoldingsFields::Target(const CInfoAboutHoldingsField& info) const {
    if (to_.type == from_.type) return &info;
    const CInfoAboutHoldingsField* callNumber = nullptr;
    for (int i = 0; to_.type != nullptr && i < to_.type->GetSize(); ++i) {
        const CInfoAboutHoldingsField* target = to_.type->GetAt(i);
        if (target->GetName() == info.GetName()) return target;
        if (TakesCallNumber(*target)) callNumber = target;
    }
    return TakesCallNumber(info) ? callNumber : nullptr;
}

}  // namespace quillory
