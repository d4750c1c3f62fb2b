#include <quillory/exchange/SpillFile.h>
#include <quillory/reports/CheckChart.h>
#include <quillory/reports/CheckPage.h>
#include <quillory/reports/CheckRecordHtml.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/CheckRuleRows.h>
#include <quillory/reports/HtmlText.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

// The most that the page names; it counts the others.
constexpr std::uint64_t kMostFiles = 50;
constexpr std::uint64_t kMostDamages = 1000;

std::string CheckTiles(const CheckTotals& totals) {
    return Tile("", totals.records, "records checked") +
           Tile("ok", totals.verdicts[kMayGo], "well or with notes alone") +
           Tile("warning", totals.verdicts[kMayGoWithWarnings], "with warnings") +
           Tile("error", totals.verdicts[kMustStay], "with errors") +
           (totals.damaged > 0 ? Tile("error", totals.damaged, "damaged") : "");
}

// A page that stands alone. Rows and records wait in files of their own until the totals, which
// stand above them, are known.
class CheckHtmlReport : public CheckReport {
public:
    CheckHtmlReport(std::unique_ptr<Output> output, std::uint64_t rows, Reporter& reporter)
        : output_(std::move(output)), rowsWanted_(rows), reporter_(reporter), printer_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        NoteFile();
        findings_ += record.remarks.size();
        const bool isShown = rowsWanted_ == 0 || rowsShown_ < rowsWanted_;
        if (record.remarks.empty() || !isShown) return;
        rowsShown_ += record.remarks.size();
        const CheckRecordHtml html = printer_.Print(record, "r" + std::to_string(++records_));
        rows_.Write(html.rows);
        sections_.Write(html.section);
    }

    void TakeDamage(const Item& item, const std::string& reason) override {
        NoteFile();
        if (++damages_ > kMostDamages) return;
        damage_.Write("<li>" + HtmlText(reporter_.PlaceOf(item) + ": " + reason) + "</li>\n");
    }

    void Finish(const CheckTotals& totals) override {
        NoteFile();
        const PageSlots slots = {
            {"style", [this] { output_->Write(kCheckStyle); }},
            {"files", [this] { output_->Write(Files()); }},
            {"tiles", [&] { output_->Write(CheckTiles(totals)); }},
            {"findings-chart", [&] { output_->Write(FindingsChart(totals)); }},
            {"materials-chart", [&] { output_->Write(MaterialsChart(totals)); }},
            {"fields-chart", [&] { output_->Write(FieldsChart(totals)); }},
            {"findings", [&] { WriteFindings(totals); }},
            {"damage", [this] { WriteDamage(); }},
            {"script", [this] { output_->Write(kCheckScript); }},
        };
        WritePagePart(kCheckPage, slots, *output_);
        output_->Finish();
    }

private:
    void NoteFile() {
        if (reporter_.File() == file_ || reporter_.File().empty()) return;
        file_ = reporter_.File();
        if (++files_ > kMostFiles) return;
        fileNames_ += (fileNames_.empty() ? "" : ", ") + HtmlText(file_);
    }

    std::string Files() const {
        if (files_ == 1) return "<p class=\"files\">" + fileNames_ + "</p>\n";
        const std::uint64_t unnamed = files_ - std::min(files_, kMostFiles);
        return "<details class=\"files\"><summary>" + Counted(files_, "file") + "</summary>" +
               fileNames_ + (unnamed > 0 ? " and " + std::to_string(unnamed) + " more" : "") +
               "</details>\n";
    }

    // Which of the findings are shown, where that is not all.
    std::string FindingsNote() const {
        if (rowsShown_ == findings_) return {};
        return "<p class=\"note\">The first " + std::to_string(rowsShown_) + " of " +
               std::to_string(findings_) +
               " findings, with their records. Charts and rules count all of them; "
               "<code>--rows 0</code> shows all.</p>\n";
    }

    void WriteFindings(const CheckTotals& totals) {
        if (findings_ == 0) {
            output_->Write("<p>Nothing was found.</p>\n");
            return;
        }
        const PageSlots slots = {
            {"rules", [&] { output_->Write(CheckRuleRows(totals)); }},
            {"note", [this] { output_->Write(FindingsNote()); }},
            {"rows", [this] { rows_.CopyTo(*output_); }},
            {"records", [this] { sections_.CopyTo(*output_); }},
        };
        WritePagePart(kFindingsSection, slots, *output_);
    }

    std::string DamageNote() const {
        return "<p class=\"note\">" + Counted(damages_, "place") +
               (damages_ > kMostDamages ? "; the first " + std::to_string(kMostDamages) : "") +
               ":</p>\n";
    }

    void WriteDamage() {
        if (damages_ == 0) return;
        const PageSlots slots = {
            {"note", [this] { output_->Write(DamageNote()); }},
            {"items", [this] { damage_.CopyTo(*output_); }},
        };
        WritePagePart(kDamageSection, slots, *output_);
    }

    std::unique_ptr<Output> output_;
    std::uint64_t rowsWanted_;
    Reporter& reporter_;
    CheckRecordPrinter printer_;
    SpillFile rows_;
    SpillFile sections_;
    SpillFile damage_;
    std::string file_;
    std::string fileNames_;
    std::uint64_t files_ = 0;
    std::uint64_t findings_ = 0;
    std::uint64_t rowsShown_ = 0;
    std::uint64_t records_ = 0;  // with a section
    std::uint64_t damages_ = 0;
};

}  // namespace

std::unique_ptr<CheckReport> MakeHtmlCheckReport(std::unique_ptr<Output> output,
                                                 const CheckReportOptions& options,
                                                 Reporter& reporter) {
    return std::make_unique<CheckHtmlReport>(std::move(output), options.rows, reporter);
}

}  // namespace quillory
