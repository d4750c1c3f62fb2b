#include <quillory/coded/Material.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/store/Summary.h>

#include <nlohmann/json.hpp>

#include <utility>

namespace quillory {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const Finding& finding) {
    Json json{{"code", static_cast<int>(finding.code)},
              {"severity", finding.IsError() ? "error" : "warning"},
              {"tag", nullptr},
              {"occurrence", nullptr},
              {"subfield", nullptr},
              {"short", ShortText(finding)},
              {"message", LongText(finding)}};
    if (!finding.Tag().empty()) json["tag"] = finding.Tag();
    if (finding.occurrence != 0) json["occurrence"] = finding.occurrence;
    if (finding.subfield != '\0') json["subfield"] = std::string(1, finding.subfield);
    return json;
}

// An object a record or damage, a line each.
class JsonlReport : public CheckReport {
public:
    JsonlReport(std::unique_ptr<Output> output, Reporter& reporter)
        : output_(std::move(output)), reporter_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        const RecordSummary summary = summarizer_.Summarize(record.item.record);
        Json line = LineOf(record.item);
        line["control_number"] = summary.controlNumber;
        line["title"] = summary.title;
        line["material"] = MaterialText(record.item.record.leader);
        line["verdict"] = VerdictText(record.verdict);
        line["findings"] = Json::array();
        for (const Finding& finding : record.findings) line["findings"].push_back(JsonOf(finding));
        Write(line);
    }

    void TakeDamage(const Item& item) override {
        Json line = LineOf(item);
        line[item.kind == kItemStray ? "stray" : "damaged"] = item.reason;
        line["fault_offset"] = item.faultOffset;
        Write(line);
    }

    void Finish(const CheckTotals&, const Policy&) override { output_->Finish(); }

private:
    Json LineOf(const Item& item) const {
        return {{"file", reporter_.File()}, {"record", item.number}, {"offset", item.offset}};
    }

    void Write(const Json& line) {
        output_->Write(line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n");
    }

    std::unique_ptr<Output> output_;
    Reporter& reporter_;
    Summarizer summarizer_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeJsonlCheckReport(std::unique_ptr<Output> output,
                                                  Reporter& reporter) {
    return std::make_unique<JsonlReport>(std::move(output), reporter);
}

}  // namespace quillory
