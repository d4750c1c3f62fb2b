#include <quillory/reports/EditMessages.h>
#include <quillory/reports/LineDiff.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/JsonWriter.h>

#include <algorithm>

namespace quillory {
namespace {

// The place whatever its occurrence.
std::string GeneralPlace(Place place) {
    place.occurrence = 0;
    return PlaceText(place);
}

}  // namespace

EditMessages::EditMessages(const EditMessagesOptions& options, Reporter& reporter)
    : reporter_(reporter), colour_(options.colour) {
    if (!options.report.empty()) {
        file_ = std::make_unique<Output>(options.report, OutputRole::kBeside);
    }
    if (options.showsDiff) screen_ = std::make_unique<Output>("-");
}

void EditMessages::TakeRecord(const Item& item, const Edit& edit) {
    if (file_) {
        const std::string_view controlNumber = item.record.ControlNumber();
        for (const Change& change : edit.changes) WriteChange(item, controlNumber, change);
    }
    if (screen_) ShowDiff(item, edit);
}

void EditMessages::WriteChange(const Item& item, std::string_view controlNumber,
                               const Change& change) {
    std::string line;
    Losses unused;  // bytes that are no UTF-8 are replaced
    JsonWriter json(line, unused);
    json.BeginObject();
    json.Member("file", reporter_.File());
    json.Member("record", item.number);
    json.Member("offset", item.offset);
    json.Member("control_number", controlNumber);
    json.Member("operation", change.operation);
    json.Member("place", GeneralPlace(change.place));
    json.Member("occurrence", std::max(change.place.occurrence, 1U));
    json.Member("old", change.before);
    json.Member("new", change.after);
    json.EndObject();
    file_->Write(line + "\n");
}

void EditMessages::ShowDiff(const Item& item, const Edit& edit) {
    screen_->Write(reporter_.PlaceOf(item) + "\n" + DiffText(edit.before, edit.after, colour_));
}

void EditMessages::Complete() {
    if (file_) file_->Complete();
}

void EditMessages::Finish(const EditTotals& totals, bool isDryRun) {
    if (file_) file_->Finish();
    if (screen_) screen_->Finish();
    if (reporter_.Quiet()) return;
    std::string text = Counted(totals.changes, "change") + (isDryRun ? " to be made" : " made") +
                       " in " + std::to_string(totals.edited) + " of " +
                       Counted(totals.records, "record");
    if (totals.refused > 0) {
        text += ", " + std::to_string(totals.refused) + " left that can't be edited so";
    }
    reporter_.Say(text);
}

std::string DiffText(const std::vector<std::string>& before, const std::vector<std::string>& after,
                     bool colour) {
    std::string text;
    for (const LineOfDiff& line : DiffOf(before, after)) {
        if (colour) text += line.isNew ? kGreen : kRed;
        text += (line.isNew ? "+ " : "- ") + Visible(line.text);
        if (colour) text += kPlain;
        text += '\n';
    }
    return text;
}

}  // namespace quillory
