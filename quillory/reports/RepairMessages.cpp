#include <quillory/reports/RepairMessages.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>

namespace quillory {
namespace {

// Messages of one kind are counted together.
std::string KindOf(const Repair& repair) {
    if (repair.place.IsRecord()) return "records that can't be repaired";
    return ElementTextOf(repair) + (repair.element == nullptr ? " as a whole" : "");
}

std::string ClassOf(const RepairRow& row) {
    const std::string name(NameOf(row.first.repairClass));
    return row.first.kind == RepairKind::Left ? name + ", left" : name;
}

// Enough of a record to say where it is. To look for its control number among all fields with each
// of its messages would take the square of their number.
Item HeadOf(const Item& item) {
    Item head;
    head.Begin(item.kind, item.offset, item.bytes);
    head.number = item.number;
    const std::string_view controlNumber = item.record.ControlNumber();
    if (!controlNumber.empty()) head.record.fields.push_back({"001", controlNumber});
    return head;
}

}  // namespace

bool RepairMessages::Needs(const std::vector<Repair>& repairs) const {
    if (file_ || reporter_.SaysAll()) return !repairs.empty();
    const auto isLeft = [](const Repair& repair) { return repair.kind == RepairKind::Left; };
    return std::ranges::any_of(repairs, isLeft);
}

void RepairMessages::TakeRecord(const Item& item, const std::vector<Repair>& repairs) {
    const Item head = HeadOf(item);
    for (const Repair& repair : repairs) {
        if (repair.kind != RepairKind::Left && !reporter_.SaysAll()) continue;
        reporter_.Say(head, KindOf(repair), [&] { return words_.MessageOf(repair); });
    }
    if (file_) file_->TakeRecord(item, repairs);
}

void RepairMessages::Complete(const RepairTotals& totals) {
    if (file_) file_->Complete(totals);
}

void RepairMessages::Finish(const RepairTotals& totals, bool isDryRun) {
    if (file_) file_->Finish(totals, isDryRun);
    if (!reporter_.Quiet()) SayTotals(totals, isDryRun);
}

void RepairMessages::SayTotals(const RepairTotals& totals, bool isDryRun) const {
    std::string text = Counted(totals.repaired, "repair") + (isDryRun ? " to be made" : " made") +
                       " in " + std::to_string(totals.recordsRepaired) + " of " +
                       Counted(totals.records, "record");
    if (totals.left > 0) {
        text += ", " + std::to_string(totals.left) + " left that can't be repaired";
    }
    if (totals.rows.empty()) return reporter_.Say(text);
    reporter_.Say(text + ", with the first of each kind:\n" + TableOf(totals, words_));
}

std::string TableOf(const RepairTotals& totals, const RepairWords& words) {
    constexpr std::size_t kCountWidth = 8;
    std::size_t classWidth = 0;
    std::size_t placeWidth = 0;
    for (const auto& [key, row] : totals.rows) {
        classWidth = std::max(classWidth, Columns(ClassOf(row)));
        placeWidth = std::max(placeWidth, Columns(ElementTextOf(row.first)));
    }
    std::string text;
    for (const auto& [key, row] : totals.rows) {
        text +=
            RightAligned(std::to_string(row.count), kCountWidth) + "  " +
            Padded(ClassOf(row), classWidth) + "  " + Padded(ElementTextOf(row.first), placeWidth) +
            "  " +
            (row.first.kind == RepairKind::Left ? ReasonOf(row.first) : words.ChangeOf(row.first)) +
            "\n";
    }
    return text;
}

}  // namespace quillory
