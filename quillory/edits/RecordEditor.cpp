#include <quillory/edits/RecordEditor.h>
#include <quillory/exchange/Mrk.h>

#include <algorithm>

namespace quillory {
namespace {

std::vector<std::string> LinesOf(const Record& record) {
    std::string text;
    AppendMrk(record, text);
    std::vector<std::string> lines;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t size = std::min(rest.find('\n'), rest.size());
        if (size > 0) lines.emplace_back(rest.substr(0, size));
        rest.remove_prefix(std::min(size + 1, rest.size()));
    }
    return lines;
}

}  // namespace

std::vector<std::string> LinesInUtf8(const Record& record, EditedRecord::Options options) {
    EditedRecord decoded(options);
    decoded.Begin(record);
    return LinesOf(decoded.InUtf8());
}

RecordEditor::RecordEditor(EditTask task, EditorOptions options)
    : task_(std::move(task)), options_(options), record_(options.record) {}

// A record of ISO 8859-1 does not say so: whoever asks for its values has to get UTF-8.
bool RecordEditor::Holds(const RecordCondition& condition) {
    if (!condition) return true;
    const bool isAsGiven = !record_.IsChanged() && options_.record.charset < kCharsetLatin1;
    return condition(isAsGiven ? record_.Given() : record_.InUtf8());
}

void RecordEditor::Run(const EditStep& step) {
    if (!Holds(step.where)) return;
    record_.BeginStep(step.operation);
    FieldFilter isMeant;
    if (step.onlyWhen) {
        isMeant = [&](std::size_t field) { return step.onlyWhen(record_.InUtf8(field)); };
    }
    step.work->Run(record_, isMeant);
}

std::optional<Fault> RecordEditor::PutInto(Record& record, Losses& losses) {
    Record edited;
    Losses ofEdit;
    record_.Give(edited, ofEdit);
    if (auto fault = FaultOfEdit(record_, edited, options_.isIso2709)) return fault;
    losses.Add(ofEdit);
    if (options_.keepsLines) KeepLines(record);
    record = std::move(edited);
    return std::nullopt;
}

void RecordEditor::KeepLines(const Record& given) {
    edit_.before = LinesInUtf8(given, options_.record);
    edit_.after = LinesOf(record_.InUtf8());
}

const Edit& RecordEditor::Carry(Record& record, Losses& losses) {
    edit_ = {};
    const bool isLatin1 = options_.record.charset >= kCharsetLatin1;
    if (task_.where && !isLatin1 && !task_.where(record)) return edit_;
    record_.Begin(record);
    try {
        if (isLatin1 && !Holds(task_.where)) return edit_;
        for (const EditStep& step : task_.steps) Run(step);
        if (!record_.IsChanged()) return edit_;
        edit_.refused = PutInto(record, losses);
    } catch (const EditRefused& refused) {
        edit_.refused = refused.Why();
    }
    if (!edit_.refused) edit_.changes = record_.Changes();
    return edit_;
}

}  // namespace quillory
