#include <quillory/repair/CodedValue.h>
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

std::string PlaceShown(const Repair& repair) {
    std::string place = repair.Place();
    if (repair.occurrence > 1) {
        place = std::string(repair.field) + " number " + std::to_string(repair.occurrence) +
                place.substr(repair.field.size());
    }
    return repair.element == nullptr ? place : place + " " + NameOf(repair);
}

}  // namespace

RepairMessages::RepairMessages(const std::string& path, const CodeLists& lists, Reporter& reporter)
    : lists_(lists), reporter_(reporter) {
    if (!path.empty()) file_ = std::make_unique<Output>(path);
}

const std::string& RepairMessages::KindOf(const Repair& repair) {
    std::string& kind = kinds_[{repair.element, repair.field}];
    if (!kind.empty()) return kind;
    if (repair.element != nullptr) {
        kind = repair.Place() + " " + NameOf(repair);
    } else {
        kind = repair.field.empty() ? "records that can't be repaired"
                                    : std::string(repair.field) + " as a whole";
    }
    return kind;
}

std::string RepairMessages::TextOf(const Repair& repair, const std::string& value) const {
    return repair.element == nullptr ? "" : ValueText(lists_, *repair.element, value);
}

// "lun (Lunda)".
std::string RepairMessages::ValueShown(const Repair& repair, const std::string& value) const {
    const std::string text = TextOf(repair, value);
    return Printable(CodeText(value)) + (text.empty() ? "" : " (" + text + ")");
}

std::string RepairMessages::MessageOf(const Repair& repair) const {
    const std::string place = PlaceShown(repair);
    switch (repair.kind) {
        case RepairKind::Replaced:
            return place + ": " + ValueShown(repair, repair.before) + " -> " +
                   ValueShown(repair, repair.after);
        case RepairKind::Kept:
            return place + ": " + ValueShown(repair, repair.before) + " kept; the library has " +
                   ValueShown(repair, repair.after);
        case RepairKind::Length:
            return place + ": " + Printable(repair.reason);
        default:
            return place + (place.empty() ? "" : ": ") + repair.reason + "; left as it was";
    }
}

void RepairMessages::Say(const Item& item, const Repair& repair) {
    if (repair.kind == RepairKind::Kept && !reporter_.SaysAll()) return;
    reporter_.Say(item, KindOf(repair), [&] { return MessageOf(repair); });
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
    json.Member("place", repair.Place());
    json.Member("occurrence", repair.occurrence);
    json.Member("name", NameOf(repair));
    json.Member("old", Utf8OfBytes(repair.before));
    json.Member("old_text", TextOf(repair, repair.before));
    json.Member("new", Utf8OfBytes(repair.after));
    json.Member("new_text", TextOf(repair, repair.after));
    json.Member("reason", Utf8OfBytes(repair.reason));
    json.EndObject();
    file_->Write(line + "\n");
}

void RepairMessages::TakeRecord(const Item& item, const std::vector<Repair>& repairs) {
    for (const Repair& repair : repairs) {
        Say(item, repair);
        if (file_) Write(item, repair);
    }
}

void RepairMessages::Finish(const RepairTotals& totals, bool isDryRun) {
    if (file_) file_->Finish();
    if (!reporter_.Quiet()) Summarize(totals, isDryRun);
}

void RepairMessages::Summarize(const RepairTotals& totals, bool isDryRun) const {
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
