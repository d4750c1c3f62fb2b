#include <quillory/coded/FreeValues.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/RepairMessages.h>
#include <quillory/text/JsonWriter.h>

#include <algorithm>

namespace quillory {
namespace {

const char* OutcomeOf(const Repair& repair) {
    switch (repair.kind) {
        case RepairKind::Replaced:
            return "repaired";
        case RepairKind::Kept:
            return "kept";
        case RepairKind::Length:
            return "length";
        default:
            return "left";
    }
}

// Each byte as the character of its number, so that none is lost.
std::string Utf8OfBytes(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | byte >> 6);
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

std::string NameOf(const Repair& repair) {
    return repair.element == nullptr ? "" : repair.element->name;
}

// The place whatever its occurrence.
std::string GeneralPlace(const Repair& repair) {
    Place place = repair.place;
    place.occurrence = 0;
    return PlaceText(place);
}

// Messages of one kind are counted together.
std::string KindOf(const Repair& repair) {
    if (repair.element != nullptr) return GeneralPlace(repair) + " " + NameOf(repair);
    return repair.place.IsRecord() ? "records that can't be repaired"
                                   : GeneralPlace(repair) + " as a whole";
}

// Why a length changed, with the bytes that were cut, or why something was left; else empty.
std::string ReasonOf(const Repair& repair) {
    std::string reason = FaultReason(FaultOf(repair));
    if (repair.fault != FaultCode::kFieldCut) return reason;
    const std::string cut = repair.before.substr(repair.after.size());
    return reason + ": " + (IsAll(cut, ' ') ? "blanks" : cut);
}

}  // namespace

RepairMessages::RepairMessages(const std::string& path, const CodeLists& lists, Reporter& reporter)
    : lists_(lists), reporter_(reporter) {
    if (!path.empty()) file_ = std::make_unique<Output>(path);
}

void RepairMessages::TakeRecord(const Item& item, const std::vector<Repair>& repairs) {
    for (const Repair& repair : repairs) {
        Say(item, repair);
        if (file_) Write(item, repair);
    }
}

void RepairMessages::Finish(const RepairTotals& totals, bool isDryRun) {
    if (file_) file_->Finish();
    if (!reporter_.Quiet()) SayTotals(totals, isDryRun);
}

void RepairMessages::Say(const Item& item, const Repair& repair) {
    if (repair.kind == RepairKind::Kept && !reporter_.SaysAll()) return;
    reporter_.Say(item, KindOf(repair), [&] { return MessageOf(repair); });
}

std::string RepairMessages::MessageOf(const Repair& repair) const {
    std::string place = PlaceText(repair.place);
    if (repair.element != nullptr) place += " " + NameOf(repair);
    if (!place.empty()) place += ": ";
    switch (repair.kind) {
        case RepairKind::Replaced:
            return place + ValueShown(repair, repair.before) + " -> " +
                   ValueShown(repair, repair.after);
        case RepairKind::Kept:
            return place + ValueShown(repair, repair.before) + " kept; the library has " +
                   ValueShown(repair, repair.after);
        case RepairKind::Length:
            return place + Printable(ReasonOf(repair));
        default:
            return place + ReasonOf(repair) + "; left as it was";
    }
}

// "lun (Lunda)".
std::string RepairMessages::ValueShown(const Repair& repair, std::string_view value) const {
    const std::string meaning = MeaningOf(repair, value);
    return Printable(CodeText(value)) + (meaning.empty() ? "" : " (" + meaning + ")");
}

// What a value of an element says, in UTF-8; several codes with "; " between them. Empty if nothing
// is known.
std::string RepairMessages::MeaningOf(const Repair& repair, std::string_view value) const {
    const Element* element = repair.element;
    if (element == nullptr || element->IsUndefined()) return "";
    if (const auto free = ReadFreeValue(element->parts.front(), value)) return free->text;
    std::string meaning;
    for (const CodeMeaning& code : lists_.CodesIn(*element, value)) {
        if (code.text.empty()) continue;
        if (!meaning.empty()) meaning += "; ";
        meaning += code.text;
    }
    return meaning;
}

void RepairMessages::Write(const Item& item, const Repair& repair) {
    std::string line;
    Losses unused;  // there can't be any
    JsonWriter json(line, unused);
    json.BeginObject();
    json.Member("file", reporter_.File());
    json.Member("record", item.number);
    json.Member("offset", item.offset);
    json.Member("control_number", Utf8OfBytes(item.record.ControlNumber()));
    json.Member("outcome", OutcomeOf(repair));
    json.Member("place", GeneralPlace(repair));
    json.Member("occurrence", std::max(repair.place.occurrence, 1U));
    json.Member("name", NameOf(repair));
    json.Member("old", Utf8OfBytes(repair.before));
    json.Member("old_text", MeaningOf(repair, repair.before));
    json.Member("new", Utf8OfBytes(repair.after));
    json.Member("new_text", MeaningOf(repair, repair.after));
    json.Member("reason", Utf8OfBytes(ReasonOf(repair)));
    json.EndObject();
    file_->Write(line + "\n");
}

void RepairMessages::SayTotals(const RepairTotals& totals, bool isDryRun) const {
    std::string text = Counted(totals.repaired, "repair") + (isDryRun ? " to be made" : " made") +
                       " in " + std::to_string(totals.recordsRepaired) + " of " +
                       Counted(totals.records, "record");
    if (totals.kept > 0) {
        text += ", " + Counted(totals.kept, "value") + " kept that the format allows" +
                (reporter_.SaysAll() || file_ ? "" : " (named with --verbose)");
    }
    if (totals.left > 0) {
        text += ", " + std::to_string(totals.left) + " left that can't be repaired";
    }
    reporter_.Say(text);
}

}  // namespace quillory
