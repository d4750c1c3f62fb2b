#include <quillory/reports/CheckReports.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

std::string Padded(std::uint64_t number) {
    constexpr std::size_t kWidth = 8;
    std::string text = std::to_string(number);
    text.insert(0, kWidth - std::min(kWidth, text.size()), ' ');
    return text;
}

// A line a finding, and a summary at the end.
class TextReport : public CheckReport {
public:
    TextReport(std::unique_ptr<Output> output, Reporter& reporter)
        : output_(std::move(output)), reporter_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        for (const Finding& finding : record.findings) {
            text_ = reporter_.PlaceOf(record.item) + ": " + LineText(finding) + '\n';
            output_->Write(text_);
        }
    }

    // The reporter has said it already.
    void TakeDamage(const Item&) override {}

    void Finish(const CheckTotals& totals, const Policy& policy) override {
        if (!reporter_.Quiet()) output_->Write(Summary(totals, policy));
        output_->Finish();
    }

private:
    static std::string Summary(const CheckTotals& totals, const Policy& policy) {
        std::string text = totals.findings.empty() ? "" : "\n";
        text += Counted(totals.records, "record") +
                " checked: " + std::to_string(totals.verdicts[kMayGo]) + " well, " +
                std::to_string(totals.verdicts[kMayGoWithWarnings]) + " with warnings, " +
                std::to_string(totals.verdicts[kMustStay]) + " with errors";
        if (totals.damaged > 0) text += "; " + std::to_string(totals.damaged) + " damaged";
        text += '\n';
        for (const auto& [code, count] : totals.findings) {
            const bool isError = policy.SeverityOf(code) == zorby::EST_Error;
            text += Padded(count) + (isError ? "  E: " : "  W: ") + KindText(code) + '\n';
        }
        return text;
    }

    std::unique_ptr<Output> output_;
    Reporter& reporter_;
    std::string text_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeTextCheckReport(std::unique_ptr<Output> output,
                                                 Reporter& reporter) {
    return std::make_unique<TextReport>(std::move(output), reporter);
}

}  // namespace quillory
