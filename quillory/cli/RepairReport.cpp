#include <quillory/checks/CodedValue.h>
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

RepairReport::RepairReport(const std::string& path, const CodeLists& lists, Reporter& reporter)
    : lists_(lists), reporter_(reporter) {
    if (!path.empty()) file_ = std::make_unique<Output>(path);
}

const std::string& RepairReport::KindOf(const Repair& repair) {
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

std::string RepairReport::TextOf(const Repair& repair, const std::string& value) const {
    return repair.element == nullptr ? "" : ValueText(lists_, *repair.element, value);
}

// "lun (Lunda)".
std::string RepairReport::ValueShown(const Repair& repair, const std::string& value) const {
    const std::string text = TextOf(repair, value);
    return Printable(CodeText(value)) + (text.empty() ? "" : " (" + text + ")");
}

std::string RepairReport::MessageOf(const Repair& repair) const {
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

void RepairReport::Say(const Item& item, const Repair& repair) {
    if (repair.kind == RepairKind::Kept && !reporter_.SaysAll()) return;
    reporter_.Say(item, KindOf(repair), [&] { return MessageOf(repair); });
}

void RepairReport::Write(const Item& item, const Repair& repair) {
    Document row;
    row["file"] = reporter_.File();
    row["record"] = item.number;
    row["offset"] = item.offset;
    row["control_number"] = Utf8OfBytes(item.record.ControlNumber());
    row["outcome"] = OutcomeOf(repair);
    row["place"] = repair.Place();
    row["occurrence"] = repair.occurrence;
    row["name"] = NameOf(repair);
    row["old"] = Utf8OfBytes(repair.before);
    row["old_text"] = TextOf(repair, repair.before);
    row["new"] = Utf8OfBytes(repair.after);
    row["new_text"] = TextOf(repair, repair.after);
    row["reason"] = Utf8OfBytes(repair.reason);
    file_->Write(row.dump(-1, ' ', false, Document::error_handler_t::replace) + "\n");
}

void RepairReport::Take(const Item& item, const std::vector<Repair>& repairs) {
    ++records_;
    bool isRepaired = false;
    for (const Repair& repair : repairs) {
        Say(item, repair);
        if (file_) Write(item, repair);
        if (IsRepair(repair)) {
            ++repaired_;
            isRepaired = true;
        }
        if (repair.kind == RepairKind::Kept) ++kept_;
        if (repair.kind == RepairKind::Left) ++left_;
    }
    if (isRepaired) ++recordsRepaired_;
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
