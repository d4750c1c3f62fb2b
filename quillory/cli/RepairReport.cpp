#include <quillory/cli/CodedDocument.h>
#include <quillory/cli/RepairReport.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsRepair(const Repair& repair) {
    return repair.kind == RepairKind::Replaced || repair.kind == RepairKind::Length;
}

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

// With "?" for what would steer a terminal.
std::string Printable(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return text;
}

// "lun (Lunda)".
std::string ValueShown(std::string_view value, const std::string& text) {
    const std::string shown = Printable(CodeText(value));
    return text.empty() ? shown : shown + " (" + text + ")";
}

std::string PlaceShown(const Repair& repair) {
    std::string shown = repair.place;
    if (repair.occurrence > 1) {
        shown = "field " + std::to_string(repair.occurrence) + " of " + shown;
    }
    return repair.name.empty() ? shown : shown + " " + repair.name;
}

}  // namespace

RepairReport::RepairReport(const std::string& path, Reporter& reporter) : reporter_(reporter) {
    if (!path.empty()) file_ = std::make_unique<Output>(path);
}

void RepairReport::Say(const Item& item, const Repair& repair) const {
    const std::string place = PlaceShown(repair);
    switch (repair.kind) {
        case RepairKind::Replaced:
            reporter_.Say(item, repair.place + " " + repair.name + " repaired",
                          place + ": " + ValueShown(repair.before, repair.beforeText) + " -> " +
                              ValueShown(repair.after, repair.afterText));
            break;
        case RepairKind::Kept:
            if (!reporter_.SaysAll()) break;
            reporter_.Say(item, "kept",
                          place + ": " + ValueShown(repair.before, repair.beforeText) +
                              " kept; the library has " +
                              ValueShown(repair.after, repair.afterText));
            break;
        case RepairKind::Length:
            reporter_.Say(item, repair.field + " of the wrong length",
                          place + ": " + Printable(repair.reason));
            break;
        case RepairKind::Left:
            reporter_.Say(item, repair.field + " left as it was",
                          place + (place.empty() ? "" : ": ") + repair.reason + "; left as it was");
            break;
    }
}

void RepairReport::Write(const Item& item, const Repair& repair) {
    Document row;
    row["file"] = reporter_.FileName();
    row["record"] = item.number;
    row["offset"] = item.offset;
    row["control_number"] = Utf8OfBytes(item.record.ControlNumber());
    row["outcome"] = OutcomeOf(repair);
    row["place"] = repair.place;
    row["occurrence"] = repair.occurrence;
    row["name"] = repair.name;
    row["old"] = Utf8OfBytes(repair.before);
    row["old_text"] = repair.beforeText;
    row["new"] = Utf8OfBytes(repair.after);
    row["new_text"] = repair.afterText;
    row["reason"] = Utf8OfBytes(repair.reason);
    file_->Write(row.dump(-1, ' ', false, Document::error_handler_t::replace) + "\n");
}

void RepairReport::Take(const Item& item, const std::vector<Repair>& repairs) {
    ++records_;
    for (const Repair& repair : repairs) {
        Say(item, repair);
        if (file_) Write(item, repair);
        if (IsRepair(repair)) ++repaired_;
        if (repair.kind == RepairKind::Kept) ++kept_;
        if (repair.kind == RepairKind::Left) ++left_;
    }
    if (std::any_of(repairs.begin(), repairs.end(), IsRepair)) ++recordsRepaired_;
}

void RepairReport::Finish() {
    if (file_) file_->Finish();
}

void RepairReport::Summarize(bool isDryRun) const {
    if (reporter_.Quiet()) return;
    std::string text = Counted(repaired_, "repair") + (isDryRun ? " to be made" : " made") +
                       " in " + std::to_string(recordsRepaired_) + " of " +
                       Counted(records_, "record");
    if (kept_ > 0) {
        text += ", " + Counted(kept_, "value") + " kept that the format allows" +
                (reporter_.SaysAll() || file_ ? "" : " (named with --verbose)");
    }
    if (left_ > 0) text += ", " + std::to_string(left_) + " left that can't be repaired";
    reporter_.Say(text);
}

}  // namespace quillory
