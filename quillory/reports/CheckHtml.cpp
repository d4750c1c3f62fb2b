#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/SpillFile.h>
#include <quillory/reports/CheckChart.h>
#include <quillory/reports/CheckPage.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/HtmlText.h>
#include <quillory/reports/RecordScreen.h>
#include <quillory/store/Summary.h>

#include <map>
#include <set>
#include <utility>

namespace quillory {
namespace {

// The most that the page names; it counts the others.
constexpr std::uint64_t kMostFiles = 50;
constexpr std::uint64_t kMostDamages = 1000;

std::string Cell(std::string_view kind, std::string_view html) {
    std::string cell = kind.empty() ? "<td>" : "<td class=\"" + std::string(kind) + "\">";
    return cell.append(html) + "</td>";
}

std::string_view ClassOf(const Finding& finding) {
    return finding.IsError() ? "error" : "warning";
}

std::string Tile(std::string_view kind, std::uint64_t count, std::string_view text) {
    return "<li class=\"" + std::string(kind) + "\"><b>" + std::to_string(count) + "</b>" +
           std::string(text) + "</li>\n";
}

// Which of the record's fields have findings, by their place in it.
std::set<std::size_t> FieldsWithFindings(const CheckedRecord& record) {
    std::set<std::pair<std::string_view, std::uint32_t>> wanted;
    for (const Finding& finding : record.findings) {
        wanted.emplace(finding.Tag(), finding.occurrence);
    }
    std::map<std::string_view, std::uint32_t> occurrences;
    std::set<std::size_t> fields;
    std::size_t place = 0;
    for (const zorby::CommFormatField& field : record.item.record.fields) {
        if (wanted.contains({field.tag, ++occurrences[field.tag]})) fields.insert(place);
        ++place;
    }
    return fields;
}

// A page that stands alone. Rows and records wait in files of their own until the totals, which
// stand above them, are known.
class HtmlReport : public CheckReport {
public:
    HtmlReport(std::unique_ptr<Output> output, std::uint64_t rows, Reporter& reporter)
        : output_(std::move(output)), rowsWanted_(rows), reporter_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        NoteFile();
        findings_ += record.findings.size();
        const bool isShown = rowsWanted_ == 0 || rowsShown_ < rowsWanted_;
        if (record.findings.empty() || !isShown) return;
        rowsShown_ += record.findings.size();
        const std::string id = "r" + std::to_string(++records_);
        const RecordSummary summary = summarizer_.Summarize(record.item.record);
        for (const Finding& finding : record.findings) {
            table_.Write(Row(record.item, finding, summary, id));
        }
        details_.Write(Detail(record, summary, id));
    }

    void TakeDamage(const Item& item) override {
        NoteFile();
        if (++damages_ > kMostDamages) return;
        damage_.Write("<li>" + HtmlText(reporter_.PlaceOf(item) + ": " + item.reason) + "</li>\n");
    }

    void Finish(const CheckTotals& totals, const Policy& policy) override {
        NoteFile();
        output_->Write(
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<title>Record check</title>\n<style>");
        output_->Write(kCheckStyle);
        output_->Write("</style>\n</head>\n<body>\n<h1>Record check</h1>\n");
        WriteOverview(totals, policy);
        WriteFindings();
        WriteDamage();
        output_->Write("<script>");
        output_->Write(kCheckScript);
        output_->Write("</script>\n</body>\n</html>\n");
        output_->Finish();
    }

private:
    void NoteFile() {
        if (reporter_.File() == file_ || reporter_.File().empty()) return;
        file_ = reporter_.File();
        if (++files_ > kMostFiles) return;
        fileNames_ += (fileNames_.empty() ? "" : ", ") + HtmlText(file_);
    }

    std::string Row(const Item& item, const Finding& finding, const RecordSummary& summary,
                    const std::string& id) const {
        const std::string number = std::to_string(item.number);
        return "<tr>" + Cell(ClassOf(finding), finding.IsError() ? "Error" : "Warning") +
               Cell("finding", HtmlText(ShortText(finding))) +
               Cell("field", HtmlText(PlaceText(finding))) +
               Cell("number", "<a href=\"#" + id + "\">" + number + "</a>") +
               Cell("number", std::to_string(item.offset)) +
               Cell("id", HtmlText(summary.controlNumber)) +
               Cell("title", HtmlText(summary.title)) + FileCell() + "</tr>\n";
    }

    // The folder shows where the pointer rests.
    std::string FileCell() const {
        const std::string& path = reporter_.File();
        return "<td title=\"" + HtmlText(path) + "\">" +
               HtmlText(path.substr(path.find_last_of('/') + 1)) + "</td>";
    }

    std::string Detail(const CheckedRecord& record, const RecordSummary& summary,
                       const std::string& id) {
        const std::string title = summary.title.empty() ? "(no title)" : summary.title;
        std::string html = "<section class=\"record\" id=\"" + id + "\"><h3>" + HtmlText(title) +
                           "</h3>\n<p class=\"note\">" + HtmlText(reporter_.PlaceOf(record.item)) +
                           " <a class=\"back\" href=\"#findings\">all findings</a></p>\n<ul>\n";
        for (const Finding& finding : record.findings) {
            const std::string place = PlaceText(finding);
            html += "<li class=\"" + std::string(ClassOf(finding)) + "\">" +
                    HtmlText(LongText(finding) + (place.empty() ? "" : " [" + place + "]")) +
                    "</li>\n";
        }
        return html + "</ul>\n<pre>" + Lines(record) + "</pre></section>\n";
    }

    // A line a field, those with findings marked.
    std::string Lines(const CheckedRecord& record) {
        const std::set<std::size_t> marked = FieldsWithFindings(record);
        Record shown = record.item.record;
        Losses losses;
        recoder_.Recode(shown, losses);
        shown.leader = record.item.record.leader;
        std::string text;
        AppendScreen(shown, {}, {}, text);
        std::string html;
        std::size_t line = 0;  // the leader comes first
        for (std::size_t start = 0; start < text.size(); ++line) {
            const std::size_t end = std::min(text.find('\n', start), text.size());
            const std::string one = HtmlText(std::string_view(text).substr(start, end - start));
            html += line > 0 && marked.contains(line - 1) ? "<mark>" + one + "</mark>" : one;
            html += '\n';
            start = end + 1;
        }
        return html;
    }

    void WriteOverview(const CheckTotals& totals, const Policy& policy) {
        WriteFiles();
        output_->Write("<ul class=\"tiles\">\n" + Tile("", totals.records, "records checked") +
                       Tile("ok", totals.verdicts[kMayGo], "well") +
                       Tile("warning", totals.verdicts[kMayGoWithWarnings], "with warnings") +
                       Tile("error", totals.verdicts[kMustStay], "with errors"));
        if (totals.damaged > 0) output_->Write(Tile("error", totals.damaged, "damaged"));
        output_->Write("</ul>\n<div class=\"charts\">\n<div><h2>Findings by kind</h2>\n");
        output_->Write(kFindingsLegend);
        output_->Write(FindingsChart(totals, policy));
        output_->Write("</div>\n<div><h2>Records by material</h2>\n");
        output_->Write(kRecordsLegend);
        output_->Write(MaterialsChart(totals) + "</div>\n</div>\n");
    }

    void WriteFiles() {
        if (files_ == 1) {
            output_->Write("<p class=\"files\">" + fileNames_ + "</p>\n");
            return;
        }
        const std::uint64_t unnamed = files_ - std::min(files_, kMostFiles);
        output_->Write("<details class=\"files\"><summary>" + Counted(files_, "file") +
                       "</summary>" + fileNames_ +
                       (unnamed > 0 ? " and " + std::to_string(unnamed) + " more" : "") +
                       "</details>\n");
    }

    void WriteFindings() {
        if (findings_ == 0) {
            output_->Write("<p>Nothing was found.</p>\n");
            return;
        }
        output_->Write("<h2>Findings</h2>\n");
        if (rowsShown_ < findings_) {
            output_->Write("<p class=\"note\">The first " + std::to_string(rowsShown_) + " of " +
                           std::to_string(findings_) +
                           " findings, with their records. The charts "
                           "count all of them; <code>--rows 0</code> shows all.</p>\n");
        }
        output_->Write(
            "<input id=\"filter\" type=\"search\" placeholder=\"Only rows with these "
            "words\" aria-label=\"Only rows with these words\">\n<div class=\"scroll\">");
        output_->Write(kCheckTableHead);
        table_.CopyTo(*output_);
        output_->Write("</tbody></table></div>\n<h2>Records with findings</h2>\n");
        details_.CopyTo(*output_);
    }

    void WriteDamage() {
        if (damages_ == 0) return;
        output_->Write(
            "<h2>Damage</h2>\n<p class=\"note\">" + Counted(damages_, "place") +
            (damages_ > kMostDamages ? "; the first " + std::to_string(kMostDamages) + ":" : ":") +
            "</p>\n<ul>\n");
        damage_.CopyTo(*output_);
        output_->Write("</ul>\n");
    }

    std::unique_ptr<Output> output_;
    std::uint64_t rowsWanted_;
    Reporter& reporter_;
    Summarizer summarizer_;
    Recoder recoder_{{kCharsetAuto, kCharsetUtf8, {}}};
    SpillFile table_;
    SpillFile details_;
    SpillFile damage_;
    std::string file_;
    std::string fileNames_;
    std::uint64_t files_ = 0;
    std::uint64_t findings_ = 0;
    std::uint64_t rowsShown_ = 0;
    std::uint64_t records_ = 0;
    std::uint64_t damages_ = 0;
};

}  // namespace

std::unique_ptr<CheckReport> MakeHtmlCheckReport(std::unique_ptr<Output> output, std::uint64_t rows,
                                                 Reporter& reporter) {
    return std::make_unique<HtmlReport>(std::move(output), rows, reporter);
}

}  // namespace quillory
