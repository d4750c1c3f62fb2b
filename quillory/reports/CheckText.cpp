#include <quillory/reports/CheckReports.h>
#include <quillory/reports/CheckSummary.h>
#include <quillory/reports/ScreenText.h>

#include <vector>

namespace quillory {
namespace {

// A line for each finding, or for the first few by each rule, and a table of the rules at the end.
class CheckTextReport : public CheckReport {
public:
    CheckTextReport(std::unique_ptr<Output> output, bool showsEach, Reporter& reporter)
        : output_(std::move(output)), showsEach_(showsEach), reporter_(reporter) {}

    std::uint64_t FindingsInWords() const override { return ShowsAll() ? WordLimit::kAll : kShown; }

    void TakeRecord(const CheckedRecord& record) override {
        place_.clear();
        text_.clear();
        for (const Remark& remark : record.remarks) {
            if (!IsShown(remark)) continue;
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

    std::string Summary(const CheckTotals& totals) const {
        std::string text = totals.Rules().empty() ? "" : "\n";
        text += CheckSummary(totals) + CheckRuleLines(totals);
        if (isCut_) text += "The first few of each rule are shown; --each shows all.\n";
        return text;
    }

    // A summary is what tells of the others.
    bool ShowsAll() const { return showsEach_ || reporter_.Quiet(); }

    bool IsShown(const Remark& remark) {
        const auto rule = static_cast<std::size_t>(remark.rule->id);
        if (rule >= shown_.size()) shown_.resize(rule + 1);
        if (ShowsAll() || ++shown_[rule] <= kShown) return true;
        isCut_ = true;
        return false;
    }

    std::unique_ptr<Output> output_;
    bool showsEach_;
    Reporter& reporter_;
    std::vector<std::uint64_t> shown_;  // by the number of the rule
    bool isCut_ = false;
    std::string place_;  // of the record in hand
    std::string text_;
};

}  // namespace

std::unique_ptr<CheckReport> MakeTextCheckReport(std::unique_ptr<Output> output,
                                                 const CheckReportOptions& options,
                                                 Reporter& reporter) {
    return std::make_unique<CheckTextReport>(std::move(output), options.showsEach, reporter);
}

}  // namespace quillory
