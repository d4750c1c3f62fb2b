#include <quillory/coded/Material.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/store/Summary.h>
#include <quillory/text/JsonWriter.h>

#include <optional>
#include <utility>

namespace quillory {
namespace {

// Null for nothing.
std::optional<std::string_view> Given(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace

void ToJson(const Remark& remark, JsonWriter& json) {
    const Place& place = remark.place;
    const Rule& rule = *remark.rule;
    const std::string_view subfield(&place.code, place.code == '\0' ? 0 : 1);
    json.BeginObject();
    json.Member("rule", rule.name);
    if (rule.code != zorby::E_ERROR_CODE{}) json.Member("code", static_cast<int>(rule.code));
    json.Member("severity", SeverityText(remark.severity));
    json.Member("place", Given(PlaceText(place)));
    json.Member("tag", Given(place.Tag()));
    json.Member("occurrence",
                place.occurrence == 0 ? std::nullopt : std::optional(place.occurrence));
    json.Member("subfield", Given(subfield));
    json.Member("title", rule.title);
    json.Member("message", RemarkText(remark));
    json.EndObject();
}

namespace {

// An object for each record or damage, in a line of its own.
class CheckJsonlReport : public CheckReport {
public:
    CheckJsonlReport(std::unique_ptr<Output> output, Reporter& reporter)
        : output_(std::move(output)), reporter_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        const RecordSummary summary = summarizer_.Summarize(record.item.record);
        WriteLine(record.item, [&](JsonWriter& json) {
            json.Member("control_number", summary.controlNumber);
            json.Member("title", summary.title);
            json.Member("material", MaterialText(record.item.record.leader));
            json.Member("verdict", VerdictText(record.GetVerdict()));
            json.Member("findings", record.remarks);
        });
    }

    void TakeDamage(const Item& item) override {
        WriteLine(item, [&item](JsonWriter& json) {
            json.Member(item.kind == kItemStray ? "stray" : "damaged", FaultText(*item.fault));
            json.Member("fault_offset", item.fault->offset);
        });
    }

    void Finish(const CheckTotals&) override { output_->Finish(); }

private:
    // Where the item is, and then what `addMembers` adds.
    template <class AddMembers>
    void WriteLine(const Item& item, AddMembers addMembers) {
        text_.clear();
        JsonWriter json(text_, losses_);
        json.BeginObject();
        json.Member("file", reporter_.File());
        json.Member("record", item.number);
        json.Member("offset", item.offset);
        addMembers(json);
        json.EndObject();
        output_->Write(text_ + '\n');
    }

    std::unique_ptr<Output> output_;
    Reporter& reporter_;
    Summarizer summarizer_;
    std::string text_;
    Losses losses_;  // not reported: the records themselves stay as they are
};

}  // namespace

std::unique_ptr<CheckReport> MakeJsonlCheckReport(std::unique_ptr<Output> output,
                                                  const CheckReportOptions& /*options*/,
                                                  Reporter& reporter) {
    return std::make_unique<CheckJsonlReport>(std::move(output), reporter);
}

}  // namespace quillory
