#include <quillory/reports/CompareReports.h>
#include <quillory/reports/DedupeMessages.h>
#include <quillory/reports/RecordScreen.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/JsonWriter.h>

namespace quillory {
namespace {

CompareFormat FormatOfCompare(const CompareReportOptions& options) {
    if (options.format != kCompareByName) return options.format;
    std::string_view name = options.output;
    if (name.ends_with(".gz")) name.remove_suffix(3);
    if (name.ends_with(".jsonl")) return kCompareJsonl;
    return name.ends_with(".html") || name.ends_with(".htm") ? kCompareHtml : kCompareText;
}

void SayTotals(const CompareTotals& totals, const Reporter& reporter) {
    if (!reporter.Quiet()) reporter.Say(TotalsText(totals));
}

class CompareTextReport : public CompareReport {
public:
    CompareTextReport(const CompareReportOptions& options, Reporter& reporter)
        : output_(options.output), colour_(options.colour), reporter_(reporter) {}

    void Take(const ComparedRecord& record) override {
        const RecordName& name = record.before != nullptr ? *record.before : *record.after;
        std::string text = HeadingOf(record, name);
        for (const FieldChange& change : record.changes) {
            if (change.isBefore) AddField('-', kRed, FieldLine(change.tag, change.before), text);
            if (change.isAfter) AddField('+', kGreen, FieldLine(change.tag, change.after), text);
        }
        output_.Write(text);
    }
    void Finish(const CompareTotals& totals) override {
        output_.Finish();
        SayTotals(totals, reporter_);
    }

private:
    std::string HeadingOf(const ComparedRecord& record, const RecordName& name) const {
        std::string text = colour_ ? kBold : "";
        text += std::string(OutcomeText(record.outcome)) + ": " + Visible(ShortText(name, ""));
        if (record.outcome == CompareOutcome::Changed) {
            text += " -> " + Visible(ShortText(*record.after, ""));
        }
        if (!name.title.empty()) text += " " + Visible(name.title);
        return text + (colour_ ? kPlain : "") + "\n";
    }
    void AddField(char sign, const char* colour, const std::string& line, std::string& text) const {
        if (colour_) text += colour;
        text += sign;
        text += " " + line;
        if (colour_) text += kPlain;
        text += '\n';
    }

    Output output_;
    bool colour_;
    Reporter& reporter_;
};

void ToJson(const FieldChange& change, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", change.tag);
    json.Name("before");
    change.isBefore ? json.Value(FieldLine(change.tag, change.before)) : json.Null();
    json.Name("after");
    change.isAfter ? json.Value(FieldLine(change.tag, change.after)) : json.Null();
    json.EndObject();
}

void AddName(std::string_view member, const RecordName* name, JsonWriter& json) {
    json.Name(member);
    name == nullptr ? json.Null() : json.Value(*name);
}

class CompareJsonlReport : public CompareReport {
public:
    CompareJsonlReport(const CompareReportOptions& options, Reporter& reporter)
        : output_(options.output), reporter_(reporter) {}

    void Take(const ComparedRecord& record) override {
        std::string line;
        Losses unused;  // names and fields are UTF-8 already
        JsonWriter json(line, unused);
        json.BeginObject();
        json.Member("outcome", OutcomeText(record.outcome));
        AddName("before", record.before, json);
        AddName("after", record.after, json);
        json.Name("fields");
        json.BeginArray();
        for (const FieldChange& change : record.changes) ToJson(change, json);
        json.EndArray();
        json.EndObject();
        output_.Write(line + "\n");
    }
    void Finish(const CompareTotals& totals) override {
        output_.Finish();
        SayTotals(totals, reporter_);
    }

private:
    Output output_;
    Reporter& reporter_;
};

// ", 3 without a key (1 before, 2 after)" for what is counted of each file.
std::string CountsText(const std::array<std::uint64_t, 2>& counts, const std::string& what) {
    const auto& [before, after] = counts;
    if (before + after == 0) return {};
    return ", " + std::to_string(before + after) + " " + what + " (" + std::to_string(before) +
           " before, " + std::to_string(after) + " after)";
}

}  // namespace

std::string FieldLine(std::string_view tag, std::string_view content, bool colour) {
    std::string line;
    AppendField({tag, content}, {0, colour}, line);
    while (line.ends_with('\n')) line.pop_back();
    return line;
}

std::string_view OutcomeText(CompareOutcome outcome) {
    switch (outcome) {
        case CompareOutcome::New:
            return "new";
        case CompareOutcome::Gone:
            return "gone";
        case CompareOutcome::Changed:
            return "changed";
        default:
            return "no key";
    }
}

std::string TotalsText(const CompareTotals& totals) {
    std::string text = Counted(totals.same, "record") + " the same, " +
                       std::to_string(totals.changed) + " changed, " + std::to_string(totals.gone) +
                       " gone, " + std::to_string(totals.added) + " new";
    return text + CountsText(totals.keyless, "without a key") +
           CountsText(totals.doubles, "with a double key");
}

std::unique_ptr<CompareReport> MakeCompareReport(const CompareReportOptions& options,
                                                 Reporter& reporter) {
    switch (FormatOfCompare(options)) {
        case kCompareJsonl:
            return std::make_unique<CompareJsonlReport>(options, reporter);
        case kCompareHtml:
            return MakeHtmlCompareReport(options, reporter);
        default:
            return std::make_unique<CompareTextReport>(options, reporter);
    }
}

}  // namespace quillory
