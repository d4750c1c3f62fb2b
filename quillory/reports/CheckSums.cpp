#include <quillory/reports/CheckFormats.h>
#include <quillory/reports/CheckSummary.h>
#include <quillory/reports/CheckSums.h>
#include <quillory/reports/ScreenText.h>

#include <array>
#include <optional>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kSumsColumn = 10;

std::uint64_t CountOf(const VerdictCounts& counts, Verdict verdict) {
    return counts[static_cast<std::size_t>(verdict)];
}

std::uint64_t CountOf(const SeverityCounts& counts, Severity severity) {
    return counts[static_cast<std::size_t>(severity)];
}

std::uint64_t RecordsOf(const VerdictCounts& counts) {
    return counts[kMayGo] + counts[kMayGoWithWarnings] + counts[kMustStay];
}

template <class Cells>
std::string SumsRow(const Cells& cells, std::string_view name) {
    std::string row;
    for (const auto& cell : cells) row += RightAligned(cell, kSumsColumn);
    return row.append("  ").append(name) + '\n';
}

std::string MaterialLines(const CheckTotals& totals) {
    std::string text =
        '\n' + SumsRow(std::array<std::string, 3>{"records", "warnings", "errors"}, "by material");
    for (const auto& [material, counts] : totals.Materials()) {
        text += SumsRow(std::array{std::to_string(RecordsOf(counts)),
                                   std::to_string(CountOf(counts, kMayGoWithWarnings)),
                                   std::to_string(CountOf(counts, kMustStay))},
                        material);
    }
    return text;
}

std::string FieldLines(const CheckTotals& totals) {
    const auto fields = totals.findings.Fields();
    if (fields.empty()) return {};
    std::string text =
        '\n' + SumsRow(std::array<std::string, 3>{"errors", "warnings", "notes"}, "by field");
    for (const auto& [tag, counts] : fields) {
        text += SumsRow(std::array{std::to_string(CountOf(counts, Severity::Error)),
                                   std::to_string(CountOf(counts, Severity::Warning)),
                                   std::to_string(CountOf(counts, Severity::Note))},
                        tag.empty() ? "whole record" : Visible(tag));
    }
    return text;
}

std::string FileLines(const std::vector<CheckSums::File>& files) {
    std::string text =
        '\n' +
        SumsRow(std::array<std::string, 4>{"records", "warnings", "errors", "damaged"}, "by file");
    for (const CheckSums::File& file : files) {
        text += SumsRow(std::array{std::to_string(RecordsOf(file.verdicts)),
                                   std::to_string(CountOf(file.verdicts, kMayGoWithWarnings)),
                                   std::to_string(CountOf(file.verdicts, kMustStay)),
                                   std::to_string(file.damaged)},
                        Visible(file.name));
    }
    return text;
}

void WriteVerdicts(const VerdictCounts& counts, JsonWriter& json) {
    json.Member("records", RecordsOf(counts));
    for (const Verdict verdict : {kMayGo, kMayGoWithWarnings, kMustStay}) {
        json.Member(VerdictText(verdict), CountOf(counts, verdict));
    }
}

void WriteRules(const CheckTotals& totals, JsonWriter& json) {
    json.Name("rules");
    json.BeginArray();
    for (const RuleCount& count : totals.MostFrequentFirst()) {
        json.BeginObject();
        json.Member("rule", count.rule->name);
        json.Member("severity", SeverityText(count.severity));
        json.Member("title", count.rule->title);
        json.Member("findings", count.count);
        json.Member("records", count.records);
        json.EndObject();
    }
    json.EndArray();
}

void WriteMaterials(const CheckTotals& totals, JsonWriter& json) {
    json.Name("materials");
    json.BeginArray();
    for (const auto& [material, counts] : totals.Materials()) {
        json.BeginObject();
        json.Member("material", material);
        WriteVerdicts(counts, json);
        json.EndObject();
    }
    json.EndArray();
}

void WriteFields(const CheckTotals& totals, JsonWriter& json) {
    json.Name("fields");
    json.BeginArray();
    for (const auto& [tag, counts] : totals.findings.Fields()) {
        json.BeginObject();
        json.Member("tag", tag.empty() ? std::nullopt : std::optional(tag));
        for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
            json.Member(SeverityText(severity), CountOf(counts, severity));
        }
        json.EndObject();
    }
    json.EndArray();
}

void WriteFiles(const std::vector<CheckSums::File>& files, JsonWriter& json) {
    json.Name("files");
    json.BeginArray();
    for (const CheckSums::File& file : files) {
        json.BeginObject();
        json.Member("file", file.name);
        WriteVerdicts(file.verdicts, json);
        json.Member("damaged", file.damaged);
        json.EndObject();
    }
    json.EndArray();
}

// Gathers the sums, and writes them at the end.
class SumsReport : public CheckReport {
public:
    SumsReport(std::unique_ptr<Output> output, bool isJson, Reporter& reporter)
        : output_(std::move(output)), isJson_(isJson), reporter_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        ++FileInHand().verdicts[static_cast<std::size_t>(record.GetVerdict())];
    }

    void TakeDamage(const Item& item, const std::string&) override {
        CheckSums::File& file = FileInHand();
        if (item.kind == kItemDamaged) ++file.damaged;
    }

    void Finish(const CheckTotals& totals) override {
        sums_.totals = totals;
        output_->Write(isJson_ ? JsonText(sums_) : ToText(sums_));
        output_->Finish();
    }

private:
    CheckSums::File& FileInHand() {
        if (sums_.files.empty() || sums_.files.back().name != reporter_.File()) {
            sums_.files.push_back({reporter_.File()});
        }
        return sums_.files.back();
    }

    std::unique_ptr<Output> output_;
    bool isJson_;
    Reporter& reporter_;
    CheckSums sums_;
};

std::unique_ptr<CheckReport> MakeTextSums(std::unique_ptr<Output> output, const CheckReportOptions&,
                                          Reporter& reporter) {
    return std::make_unique<SumsReport>(std::move(output), false, reporter);
}

std::unique_ptr<CheckReport> MakeJsonSums(std::unique_ptr<Output> output, const CheckReportOptions&,
                                          Reporter& reporter) {
    return std::make_unique<SumsReport>(std::move(output), true, reporter);
}

// The first is that of an output with any other name.
constexpr std::array<CheckFormatRow, 4> kSumsFormats{{
    {kCheckSumsText, "text", {}, MakeTextSums},
    {kCheckSumsJson, "json", {".json"}, MakeJsonSums},
    {kCheckJsonl, "jsonl", {".jsonl"}, MakeJsonlCheckReport},
    {kCheckHtml, "html", {".html", ".htm"}, MakeHtmlCheckReport},
}};

}  // namespace

std::string ToText(const CheckSums& sums) {
    return CheckSummary(sums.totals) + CheckRuleLines(sums.totals) + MaterialLines(sums.totals) +
           FieldLines(sums.totals) + FileLines(sums.files);
}

void ToJson(const CheckSums& sums, JsonWriter& json) {
    json.BeginObject();
    WriteVerdicts(sums.totals.verdicts, json);
    json.Member("damaged", sums.totals.damaged);
    WriteRules(sums.totals, json);
    WriteMaterials(sums.totals, json);
    WriteFields(sums.totals, json);
    WriteFiles(sums.files, json);
    json.EndObject();
}

std::vector<std::pair<std::string, CheckFormat>> SumsFormatNames() {
    return NamesOf(kSumsFormats);
}

std::unique_ptr<CheckReport> MakeSumsReport(const CheckReportOptions& options, Reporter& reporter) {
    return MakeReportIn(kSumsFormats, options, reporter);
}

}  // namespace quillory
