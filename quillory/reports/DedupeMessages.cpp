#include <quillory/faults/FaultCode.h>
#include <quillory/reports/DedupeMessages.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/JsonWriter.h>

namespace quillory {
namespace {

// "in.mrc: record 2 (001 x) Title".
std::string NameLine(const RecordName& name) {
    return Visible(ShortText(name, "") + (name.title.empty() ? "" : " " + name.title));
}

std::string DuplicateText(const Duplicate& duplicate) {
    return Visible(duplicate.key) + "\n  kept     " + NameLine(duplicate.kept) + "\n  removed  " +
           NameLine(duplicate.removed) + "\n";
}

std::string JsonOf(const Duplicate& duplicate) {
    std::string line;
    Losses unused;  // names are UTF-8 already
    JsonWriter json(line, unused);
    json.BeginObject();
    json.Member("key", duplicate.key);
    json.Member("kept", duplicate.kept);
    json.Member("removed", duplicate.removed);
    json.EndObject();
    return line + "\n";
}

}  // namespace

void ToJson(const RecordName& name, JsonWriter& json) {
    json.BeginObject();
    json.Member("file", name.file);
    json.Member("record", name.number);
    json.Member("offset", name.offset);
    json.Member("control_number", name.controlNumber);
    json.Member("title", name.title);
    json.EndObject();
}

DedupeMessages::DedupeMessages(const std::string& path, const DedupeOptions& options,
                               Reporter& reporter)
    : reporter_(reporter),
      removed_(options.removed),
      isJson_(path.ends_with(".json") || path.ends_with(".jsonl")) {
    if (!path.empty()) file_ = std::make_unique<Output>(path, OutputRole::kBeside);
}

void DedupeMessages::Take(const Item& item, const std::function<Duplicate()>& find) {
    reporter_.Say(item, FaultCode::kRemovedDouble, [&] {
        const Duplicate duplicate = find();
        return Fault{FaultCode::kRemovedDouble,
                     {},
                     Visible(duplicate.key),
                     ShortText(duplicate.kept, duplicate.removed.file)};
    });
    if (!file_) return;
    const Duplicate duplicate = find();
    file_->Write(isJson_ ? JsonOf(duplicate) : DuplicateText(duplicate));
}

void DedupeMessages::Complete() {
    if (file_) file_->Complete();
}

void DedupeMessages::Finish(const DedupeTotals& totals) {
    if (file_) file_->Finish();
    if (reporter_.Quiet()) return;
    std::string text =
        std::to_string(totals.removed) + " of " + Counted(totals.records, "record") + " removed";
    if (!removed_.empty()) text += " (kept in " + removed_ + ")";
    if (totals.keyless > 0) {
        text += ", " + Counted(totals.keyless, "record") + " without a key kept";
    }
    reporter_.Say(text);
}

}  // namespace quillory
