#include <quillory/reports/CheckReports.h>
#include <quillory/reports/CheckSummary.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

// A line for each finding, or for the first few by each rule, and a table of the rules at the end.
class CheckTextReport : public CheckReport {
public:
    CheckTextReport(std::unique_ptr<Output> output, bool showsEach, Reporter& reporter)
        : output_(std::move(output)), showsEach_(showsEach), reporter_(reporter) {}

    std::uint64_t FindingsWanted() const override { return ShowsAll() ? kAllRemarks : kShown; }

    bool NeedsRecords() const override { return false; }

    void TakeRecord(const CheckedRecord& record) override {
        place_.clear();
        text_.clear();
        for (const Remark& remark : record.remarks) {
            if (!ShowsAll() && !IsAmongFirst(remark)) continue;
            if (place_.empty()) place_ = Visible(reporter_.PlaceOf(record.item)) + ": ";
            text_ += place_;
            AppendRemarkLine(remark, text_);
            text_ += '\n';
        }
        output_->Write(text_);
    }

    // The reporter has named it already.
    void TakeDamage(const Item&, const std::string&) override {}

    void Finish(const CheckTotals& totals) override {
        if (!reporter_.Quiet()) output_->Write(Summary(totals));
        output_->Finish();
    }

private:
    static constexpr std::uint64_t kShown = 3;  // of each rule

    // Whether there is more than what is shown.
    bool IsCut(const CheckTotals& totals) const {
        const auto rules = totals.findings.Rules();
        return !ShowsAll() && std::ranges::any_of(
                                  rules, [](const RuleCount& rule) { return rule.count > kShown; });
    }

    std::string Summary(const CheckTotals& totals) const {
        std::string text = totals.findings.Rules().empty() ? "" : "\n";
        text += CheckSummary(totals) + CheckRuleLines(totals);
        if (IsCut(totals)) text += "The first few of each rule are shown; --each shows all.\n";
        return text;
    }

    // A summary is what tells of the others.
    bool ShowsAll() const { return showsEach_ || reporter_.Quiet(); }

    // Each of several inspectors keeps the first few.
    bool IsAmongFirst(const Remark& remark) {
        const auto rule = static_cast<std::size_t>(remark.rule->id);
        if (rule >= shown_.size()) shown_.resize(rule + 1);
        return ++shown_[rule] <= kShown;
    }

    std::unique_ptr<Output> output_;
    bool showsEach_;
    Reporter& reporter_;
    std::vector<std::uint64_t> shown_;  // by the number of the rule
    std::string place_;                 // of the record in hand
    std::string text_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeTextCheckReport(std::unique_ptr<Output> output,
                                                 const CheckReportOptions& options,
                                                 Reporter& reporter) {
    return std::make_unique<CheckTextReport>(std::move(output), options.showsEach, reporter);
}

}  // namespace quillory
