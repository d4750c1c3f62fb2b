#include <quillory/exchange/SpillFile.h>
#include <quillory/reports/CheckPage.h>
#include <quillory/reports/ComparePage.h>
#include <quillory/reports/CompareReports.h>
#include <quillory/reports/HtmlText.h>

namespace quillory {
namespace {

std::string CompareTiles(const CompareTotals& totals) {
    std::string tiles = Tile("ok", totals.same, "the same") +
                        Tile("warning", totals.changed, "changed") +
                        Tile("error", totals.gone, "gone") + Tile("", totals.added, "new");
    const auto add = [&tiles](std::uint64_t count, const char* what) {
        if (count > 0) tiles += Tile("error", count, what);
    };
    add(totals.keyless[0], "without a key before");
    add(totals.keyless[1], "without a key after");
    add(totals.doubles[0], "with a double key before");
    add(totals.doubles[1], "with a double key after");
    return tiles;
}

std::string CompareCell(std::string_view kind, std::string_view text) {
    return "<td class=\"" + std::string(kind) + "\">" + HtmlText(text) + "</td>";
}

// The style of an outcome on the page.
std::string_view StyleOf(CompareOutcome outcome) {
    if (outcome == CompareOutcome::New) return "ok";
    return outcome == CompareOutcome::Changed ? "warning" : "error";
}

// A page that stands alone. Rows wait in a file of their own until the totals above them are known.
class CompareHtmlReport : public CompareReport {
public:
    CompareHtmlReport(const CompareReportOptions& options, Reporter& reporter)
        : output_(options.output), most_(options.rows), reporter_(reporter) {}

    void Take(const ComparedRecord& record) override {
        if (record.changes.empty()) AddRow(record, nullptr);
        for (const FieldChange& change : record.changes) AddRow(record, &change);
    }

    void Finish(const CompareTotals& totals) override {
        const PageSlots slots = {
            {"style", [this] { output_.Write(kCheckStyle); }},
            {"tiles", [&] { output_.Write(CompareTiles(totals)); }},
            {"note", [this] { output_.Write(Note()); }},
            {"rows", [this] { rows_.CopyTo(output_); }},
            {"script", [this] { output_.Write(kCheckScript); }},
        };
        WritePagePart(kComparePage, slots, output_);
        output_.Finish();
        if (!reporter_.Quiet()) reporter_.Say(TotalsText(totals));
    }

private:
    void AddRow(const ComparedRecord& record, const FieldChange* change) {
        if (++count_ > most_ && most_ != 0) return;
        const RecordName& name = record.before != nullptr ? *record.before : *record.after;
        std::string row =
            "<tr>" + CompareCell(StyleOf(record.outcome), OutcomeText(record.outcome)) +
            CompareCell("id", name.controlNumber) +
            CompareCell("number", std::to_string(name.number)) + CompareCell("title", name.title);
        const bool isBefore = change != nullptr && change->isBefore;
        const bool isAfter = change != nullptr && change->isAfter;
        row += CompareCell("field", change == nullptr ? "" : change->tag);
        row += CompareCell("finding", isBefore ? FieldLine(change->tag, change->before) : "");
        row += CompareCell("finding", isAfter ? FieldLine(change->tag, change->after) : "");
        rows_.Write(row + "</tr>\n");
    }

    std::string Note() const {
        if (most_ == 0 || count_ <= most_) return {};
        return "<p class=\"note\">The first " + std::to_string(most_) + " of " +
               std::to_string(count_) + " rows; <code>--rows 0</code> shows all.</p>\n";
    }

    Output output_;
    std::uint64_t most_;
    Reporter& reporter_;
    SpillFile rows_;
    std::uint64_t count_ = 0;
};

}  // namespace

std::unique_ptr<CompareReport> MakeHtmlCompareReport(const CompareReportOptions& options,
                                                     Reporter& reporter) {
    return std::make_unique<CompareHtmlReport>(options, reporter);
}

}  // namespace quillory
