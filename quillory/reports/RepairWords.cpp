#include <quillory/coded/FreeValues.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/RepairReport.h>
#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/RepairWords.h>

namespace quillory {
namespace {

// "[national-code: ISO 639-2/T]"
std::string ClassShown(const Repair& repair) {
    std::string text = "[" + std::string(NameOf(repair.repairClass));
    if (!repair.source.empty()) text += ": " + std::string(repair.source);
    return text + "]";
}

}  // namespace

std::string_view OutcomeOf(const Repair& repair) {
    switch (repair.kind) {
        case RepairKind::Replaced:
            return "repaired";
        case RepairKind::Length:
            return "length";
        default:
            return "left";
    }
}

std::string ElementNameOf(const Repair& repair) {
    return repair.element == nullptr ? "" : repair.element->name;
}

std::string ElementTextOf(const Repair& repair) {
    if (repair.place.IsRecord()) return "record";
    const std::string name = ElementNameOf(repair);
    return GeneralPlace(repair) + (name.empty() ? "" : " " + name);
}

std::string ReasonOf(const Repair& repair) {
    if (repair.kind == RepairKind::Replaced) return std::string(repair.source);
    std::string reason = FaultReason(FaultOf(repair));
    if (repair.fault != FaultCode::kFieldCut) return reason;
    const std::string cut = repair.before.substr(repair.after.size());
    return reason + ": " + (IsAll(cut, ' ') ? "blanks" : cut);
}

std::string RepairWords::MessageOf(const Repair& repair) const {
    std::string place = PlaceText(repair.place);
    if (repair.element != nullptr) place += " " + ElementNameOf(repair);
    if (!place.empty()) place += ": ";
    return place + ChangeOf(repair) + " " + ClassShown(repair);
}

std::string RepairWords::ChangeOf(const Repair& repair) const {
    switch (repair.kind) {
        case RepairKind::Replaced:
            return ValueShown(repair, repair.before) + " -> " + ValueShown(repair, repair.after);
        case RepairKind::Length:
            return Printable(ReasonOf(repair));
        default:
            return ReasonOf(repair) + "; left as it was";
    }
}

// "lun (Lunda)".
std::string RepairWords::ValueShown(const Repair& repair, std::string_view value) const {
    const std::string meaning = MeaningOf(repair, value);
    return Printable(CodeText(value)) + (meaning.empty() ? "" : " (" + meaning + ")");
}

std::string RepairWords::MeaningOf(const Repair& repair, std::string_view value) const {
    const Element* element = repair.element;
    if (element == nullptr || element->IsUndefined()) return "";
    if (const auto free = ReadFreeValue(element->parts.front(), value)) return free->text;
    std::string meaning;
    std::string_view last;
    const std::vector<CodeMeaning> codes = lists_.CodesIn(*element, value);
    for (const CodeMeaning& code : codes) {
        if (code.text.empty() || code.text == last) continue;
        if (!meaning.empty()) meaning += "; ";
        meaning += code.text;
        last = code.text;
    }
    return meaning;
}

}  // namespace quillory
