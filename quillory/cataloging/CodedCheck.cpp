#include <quillory/cataloging/CodedCheck.h>
#include <quillory/coded/Decoder.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr int kType = 6;
constexpr int kLevel = 7;

bool IsCoded(const Entry& entry) {
    if (entry.kind == EntryKind::ControlField && entry.text.empty()) return false;
    const bool isCodedTag = entry.tag == 0 || (6 <= entry.tag && entry.tag <= 8);
    return isCodedTag &&
           (entry.kind == EntryKind::Positions || entry.kind == EntryKind::ControlField);
}

bool IsNamed(const DecodedElement& element, const Entry& entry) {
    const bool isOtherField = entry.tag == 0 && element.place.Tag() == "008";
    if (entry.kind == EntryKind::ControlField || isOtherField) return true;
    return element.place.first <= entry.last && entry.first <= element.place.last;
}

std::string FaultOf(const DecodedElement& element) {
    const std::string value = "\"" + element.value + "\"";
    const std::string place = PlaceText(element.place);
    const std::string name = " " + place + " (" + element.name + ")";
    switch (element.state) {
        case ElementState::Misfit:
            return value + " is no value of" + name;
        case ElementState::Undefined:
            return value + " stands in" + name + ", which the format leaves undefined";
        case ElementState::Undecoded:
            return value + ": " + element.text;
        default:
            break;
    }
    for (const CodeMeaning& code : element.codes) {
        if (code.state != CodeState::Unknown && code.state != CodeState::Obsolete) continue;
        const bool isObsolete = code.state == CodeState::Obsolete;
        std::string fault = "\"" + code.code;
        fault.append(isObsolete ? "\" is an obsolete code of" : "\" is no code of").append(name);
        return fault.append("; quillory describe ").append(place).append(" lists them");
    }
    return {};
}

bool IsOfOtherLength(const DecodedField& field) {
    return std::ranges::any_of(field.elements, [](const DecodedElement& element) {
        return element.state == ElementState::Missing || element.state == ElementState::Excess;
    });
}

// The type of record, and the level of what is published in parts, say how 008 is to be read.
bool ChangesForm(const Entry& entry) {
    return entry.tag == 0 && entry.first <= kLevel && kType <= entry.last;
}

void Check(const DecodedField& field, const Entry& entry) {
    if (IsOfOtherLength(field)) {
        throw EntryError(entry.place, "the field is not as long as the format has it");
    }
    for (const DecodedElement& element : field.elements) {
        if (!IsNamed(element, entry)) continue;
        const std::string fault = FaultOf(element);
        if (!fault.empty()) throw EntryError(entry.place, fault);
    }
}

// Without an occurrence it is the first field; of a whole field, any with this content.
void CheckEntry(const Record& record, const Entry& entry, const Decoder& decoder) {
    if (entry.tag == 0) Check(decoder.Leader(record.leader), entry);
    int count = 0;
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag == "008" && ChangesForm(entry)) {
            Check(decoder.Field008(field.content, record.leader), entry);
        }
        if (!field.IsControlField() || field.tag[2] != static_cast<char>('0' + entry.tag)) continue;
        ++count;
        const bool isWhole = entry.kind == EntryKind::ControlField;
        const bool isMeant =
            isWhole ? field.content == entry.text : count == std::max(entry.occurrence, 1);
        if (!isMeant) continue;
        if (entry.tag == 6) Check(decoder.Field006(field.content), entry);
        if (entry.tag == 7) Check(decoder.Field007(field.content), entry);
        if (entry.tag == 8) Check(decoder.Field008(field.content, record.leader), entry);
    }
}

}  // namespace

std::string CodedEntriesText(std::span<const Entry> entries) {
    std::string text;
    for (const Entry& entry : entries) {
        if (IsCoded(entry)) text.append(entry.place).append("=").append(entry.text).append("\n");
    }
    return text;
}

void CheckCodedEntries(const Record& record, std::span<const Entry> entries,
                       const CodeLists& lists) {
    const Decoder decoder(lists);
    for (const Entry& entry : entries) {
        if (!IsCoded(entry)) continue;
        try {
            CheckEntry(record, entry, decoder);
        } catch (const EntryError& error) {
            throw EntryError(error, entry.where);
        }
    }
}

}  // namespace quillory
