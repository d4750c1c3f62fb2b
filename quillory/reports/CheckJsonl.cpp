#include <quillory/jobs/GivenNumber.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/RecordWording.h>
#include <quillory/text/JsonWriter.h>

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace quillory {
namespace {

// Null for nothing.
std::optional<std::string_view> Given(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace

void ToJson(const Remark& remark, JsonWriter& json) {
    const Place& place = remark.place;
    const Rule& rule = *remark.rule;
    const std::string_view subfield(&place.code, place.code == '\0' ? 0 : 1);
    json.BeginObject();
    json.Member("rule", rule.name);
    if (rule.code != zorby::E_ERROR_CODE{}) json.Member("code", static_cast<int>(rule.code));
    json.Member("severity", SeverityText(remark.severity));
    json.Member("place", Given(PlaceText(place)));
    json.Member("tag", Given(place.Tag()));
    json.Member("occurrence",
                place.occurrence == 0 ? std::nullopt : std::optional(place.occurrence));
    json.Member("subfield", Given(subfield));
    json.Member("title", rule.title);
    json.Member("message", RemarkText(remark));
    if (rule.id >= RuleId::Count) json.MemberIfAny("why", rule.why);
    json.EndObject();
}

namespace {

const NumberMet* FirstOf(RuleId rule, std::span<const NumberMet> numbers) {
    const auto found = std::ranges::find(numbers, rule, &NumberMet::rule);
    return found == numbers.end() ? nullptr : &*found;
}

// What the user wants the findings on a number to weigh, unless it is what they weigh by
// themselves.
void WriteWeight(std::string_view name, const NumberMet* met, JsonWriter& json) {
    if (met == nullptr || met->severity == RuleOf(met->rule).severity) return;
    json.Member(name, SeverityText(met->severity));
}

// By these numbers a report on several checks finds what their records have in common. They are the
// last member of the line.
void WriteNumbers(const CheckedRecord& record, JsonWriter& json) {
    if (record.numbers.empty()) return;
    const NumberMet* number = FirstOf(RuleId::NumberRepeated, record.numbers);
    WriteWeight("001_severity", FirstOf(RuleId::ControlNumberRepeated, record.numbers), json);
    WriteWeight("number_severity", number, json);
    const auto repeated = std::ranges::count_if(
        record.remarks, [](const Remark& remark) { return IsAboutNumbers(remark.rule->id); });
    const std::size_t others = record.remarks.size() - static_cast<std::size_t>(repeated);
    if (number != nullptr && number->at < others) json.Member("numbers_at", number->at);
    std::vector<std::string> numbers;
    numbers.reserve(record.numbers.size());
    for (const NumberMet& met : record.numbers) numbers.push_back(GivenNumberText(met));
    json.Member("numbers", numbers);
}

// The control number as it stands, where it is written otherwise in the summary, and what is wrong
// with the record's bytes.
void WriteAsItStands(const Item& item, const RecordWords& words, JsonWriter& json) {
    const std::string_view controlNumber = item.record.ControlNumber();
    if (controlNumber != words.controlNumber) json.Member("001", controlNumber);
    json.MemberIfAny("fault", words.fault);
}

void WriteLines(const RecordWords& words, JsonWriter& json) {
    if (words.lines.empty()) return;
    json.Name("fields");
    json.BeginArray();
    for (const RecordWords::Line& line : words.lines) json.Value(line.text);
    json.EndArray();
}

// An object for each record or damage, in a line of its own.
class CheckJsonlReport : public CheckReport {
public:
    CheckJsonlReport(std::unique_ptr<Output> output, std::uint64_t rows, Reporter& reporter)
        : output_(std::move(output)), rowsWanted_(rows), reporter_(reporter) {}

    void TakeRecord(const CheckedRecord& record) override {
        const bool hasLines = HasLines(record);
        const RecordWords& words = wording_.Of(record, hasLines);
        WriteLine(record.item, [&](JsonWriter& json) {
            json.Member("control_number", words.controlNumber);
            json.Member("title", words.title);
            json.Member("material", words.material);
            json.Member("verdict", VerdictText(record.GetVerdict()));
            json.Member("findings", record.remarks);
            WriteAsItStands(record.item, words, json);
            if (hasLines) WriteLines(words, json);
            WriteNumbers(record, json);
        });
    }

    void TakeDamage(const Item& item, const std::string& reason) override {
        WriteLine(item, [&](JsonWriter& json) {
            json.Member(item.kind == kItemStray ? "stray" : "damaged", reason);
            json.Member("fault_offset", item.fault->offset);
            json.MemberIfAny("control_number", item.controlNumber);
        });
    }

    void Finish(const CheckTotals&) override { output_->Finish(); }

private:
    // Whether the fields are told: of as many records as a page would show. A record without
    // findings may be the second one with its number, among those of other files.
    bool HasLines(const CheckedRecord& record) {
        if (rowsWanted_ == 0) return true;
        if (record.remarks.empty()) return !record.numbers.empty() && well_++ < rowsWanted_;
        const bool hasLines = rows_ < rowsWanted_;
        rows_ += record.remarks.size();
        return hasLines;
    }

    // Where the item is, and then what `addMembers` adds.
    template <class AddMembers>
    void WriteLine(const Item& item, AddMembers addMembers) {
        text_.clear();
        JsonWriter json(text_, losses_);
        json.BeginObject();
        json.Member("file", reporter_.File());
        json.Member("record", item.number);
        json.Member("offset", item.offset);
        addMembers(json);
        json.EndObject();
        output_->Write(text_ + '\n');
    }

    std::unique_ptr<Output> output_;
    std::uint64_t rowsWanted_;
    Reporter& reporter_;
    RecordWording wording_;
    std::uint64_t rows_ = 0;  // findings so far
    std::uint64_t well_ = 0;  // records with numbers alone
    std::string text_;
    Losses losses_;  // not reported: the records themselves stay as they are
};

}  // namespace

std::unique_ptr<CheckReport> MakeJsonlCheckReport(std::unique_ptr<Output> output,
                                                  const CheckReportOptions& options,
                                                  Reporter& reporter) {
    return std::make_unique<CheckJsonlReport>(std::move(output), options.rows, reporter);
}

}  // namespace quillory
