#include <quillory/reports/CheckReports.h>
#include <quillory/reports/ScreenText.h>

#include <utility>

namespace quillory {
namespace {

// A line for each finding, and a summary at the end.
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

    // The reporter has named it already.
    void TakeDamage(const Item&) override {}

    void Finish(const CheckTotals& totals, const Policy& policy) override {
        if (!reporter_.Quiet()) output_->Write(Summary(totals, policy));
        output_->Finish();
    }

private:
    static constexpr std::size_t kCountWidth = 8;

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
            text += RightAligned(std::to_string(count), kCountWidth) +
                    (isError ? "  E: " : "  W: ") + KindText(code) + '\n';
        }
        return text;
    }

    std::unique_ptr<Output> output_;
    Reporter& reporter_;
    std::string text_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeTextCheckReport(std::unique_ptr<Output> output,
                                                 const CheckReportOptions& /*options*/,
                                                 Reporter& reporter) {
    return std::make_unique<TextReport>(std::move(output), reporter);
}

}  // namespace quillory
