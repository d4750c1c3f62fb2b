#include <quillory/cataloging/CodedCheck.h>
#include <quillory/coded/Decoder.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr int kType = 6;  // positions of the leader
constexpr int kLevel = 7;

bool IsCoded(const Entry& entry) {
    const bool isWhole = entry.kind == EntryKind::ControlField && !entry.text.empty();
    const unsigned tag = entry.Tag();
    return (isWhole || entry.kind == EntryKind::Positions) &&
           (entry.place.IsLeader() || (kTag006 <= tag && tag <= kTag008));
}

// What is wrong with an element, if anything is.
Fault FaultOf(const DecodedElement& element) {
    const Place& place = element.place;
    switch (element.state) {
        case ElementState::Misfit:
            return {FaultCode::kNotAValue, place, element.value, element.name};
        case ElementState::Undefined:
            return {FaultCode::kUndefinedPositions, place, element.value};
        case ElementState::Undecoded:
            return {FaultCode::kNotDecoded, place, element.value, element.text};
        default:
            break;
    }
    for (const CodeMeaning& code : element.codes) {
        if (code.state == CodeState::Unknown) {
            return {FaultCode::kNotACode, place, code.code, element.name};
        }
        if (code.state == CodeState::Obsolete) {
            return {FaultCode::kObsoleteCode, place, code.code, element.name};
        }
    }
    return {};
}

// Whether an element is in a place: in its positions, or in the whole field.
bool Covers(const Place& place, const Place& element) {
    return !place.HasPositions() || (element.first <= place.last && place.first <= element.last);
}

// The first fault in a place of a field.
Fault FaultIn(const DecodedField& field, const Place& place) {
    for (const DecodedElement& element : field.elements) {
        if (element.state == ElementState::Missing || element.state == ElementState::Excess) {
            return {FaultCode::kWrongLength, place, element.text};
        }
    }
    for (const DecodedElement& element : field.elements) {
        Fault fault = FaultOf(element);
        if (fault && Covers(place, fault.place)) return fault;
    }
    return {};
}

// The type of record and the bibliographic level in the leader decide how 008 is read.
Fault FaultOf008UnderLeader(const Record& record, const Entry& entry, const Decoder& decoder) {
    if (kLevel < entry.place.first || entry.place.last < kType) return {};
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag != "008") continue;
        const Fault fault =
            FaultIn(decoder.Field008(field.content, record.leader), Place::OfField(kTag008));
        if (fault) return {FaultCode::kTypeAgainst008, entry.place, FaultText(fault)};
    }
    return {};
}

DecodedField Decoded(const zorby::CommFormatField& field, unsigned tag, const Record& record,
                     const Decoder& decoder) {
    if (tag == kTag006) return decoder.Field006(field.content);
    if (tag == kTag007) return decoder.Field007(field.content);
    return decoder.Field008(field.content, record.leader);
}

// Positions are of the first field, or of that with the occurrence; a whole field may be any field
// with its content.
Fault FaultOfField(const Record& record, const Entry& entry, const Decoder& decoder) {
    std::uint32_t count = 0;
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag != entry.place.Tag()) continue;
        ++count;
        const bool isMeant = entry.kind == EntryKind::ControlField
                                 ? field.content == entry.text
                                 : count == std::max(entry.place.occurrence, 1U);
        if (!isMeant) continue;
        Fault fault = FaultIn(Decoded(field, entry.Tag(), record, decoder), entry.place);
        if (fault) return fault;
    }
    return {};
}

Fault FaultOfEntry(const Record& record, const Entry& entry, const Decoder& decoder) {
    if (!entry.place.IsLeader()) return FaultOfField(record, entry, decoder);
    Fault fault = FaultIn(decoder.Leader(record.leader), entry.place);
    return fault ? fault : FaultOf008UnderLeader(record, entry, decoder);
}

}  // namespace

std::string CodedEntriesText(std::span<const Entry> entries) {
    std::string text;
    for (const Entry& entry : entries) {
        if (!IsCoded(entry)) continue;
        text.append(PlaceText(entry.place)).append("=").append(entry.text).append("\n");
    }
    return text;
}

void CheckCodedEntries(const Record& record, std::span<const Entry> entries,
                       const CodeLists& lists) {
    const Decoder decoder(lists);
    for (const Entry& entry : entries) {
        if (!IsCoded(entry)) continue;
        Fault fault = FaultOfEntry(record, entry, decoder);
        if (fault) throw EntryError(std::move(fault), entry.where);
    }
}

}  // namespace quillory
