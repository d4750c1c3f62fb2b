#include <quillory/exchange/Input.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/FileUri.h>
#include <quillory/text/JsonWriter.h>
#include <quillory/text/Visible.h>

#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kSchema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

// What is said of bytes that are no record. It stands after all other rules.
constexpr Rule kDamage{{},
                       "damaged-record",
                       Severity::Error,
                       "Damaged record",
                       {},
                       "Nobody can read what stands there.",
                       {},
                       "MARC 21 Specifications: Record Structure"};

void WriteText(std::string_view name, std::string_view text, JsonWriter& json) {
    json.Name(name);
    json.BeginObject();
    json.Member("text", text);
    json.EndObject();
}

std::string HelpOf(const Rule& rule) {
    std::string help(rule.why.empty() ? rule.title : rule.why);
    if (!rule.example.empty()) help.append("\nSuch as: ").append(rule.example);
    if (!rule.source.empty()) help.append("\nSource: ").append(rule.source);
    return help;
}

void WriteRule(const Rule& rule, JsonWriter& json) {
    json.BeginObject();
    json.Member("id", rule.name);
    WriteText("shortDescription", rule.title, json);
    WriteText("fullDescription", rule.why.empty() ? rule.title : rule.why, json);
    WriteText("help", HelpOf(rule), json);
    json.Name("defaultConfiguration");
    json.BeginObject();
    json.Member("level", SeverityText(rule.severity));
    json.EndObject();
    json.EndObject();
}

// What is told of an item, and of which bytes of the file.
struct Result {
    const Rule& rule;
    std::size_t index;  // of the rule, among those of the tool
    Severity severity;
    std::string text;
    Place place;
    std::string_view controlNumber;
    std::uint64_t offset;
    std::uint64_t length;  // in bytes; 0 if it is not known
};

// "record 3 (001 ocm123), 245 $a".
std::string NameOfPlace(const Item& item, const Result& result) {
    std::string name = "record " + std::to_string(item.number);
    if (item.kind == kItemStray) {
        name = item.number == 0 ? "before the first record" : "after " + name;
    }
    if (!result.controlNumber.empty()) name += " (001 " + Visible(result.controlNumber) + ")";
    const std::string place = PlaceText(result.place);
    return place.empty() ? name : name + ", " + place;
}

// An object of the format for results of static analysis (SARIF 2.1.0): a line of the tool and its
// rules, and then a line for each finding.
class SarifReport : public CheckReport {
public:
    SarifReport(std::unique_ptr<Output> output, std::span<const Rule> ownRules, Reporter& reporter)
        : output_(std::move(output)),
          reporter_(reporter),
          damageIndex_(Rules().size() + ownRules.size()) {
        json_.BeginObject();
        json_.Member("$schema", kSchema);
        json_.Member("version", "2.1.0");
        json_.Name("runs");
        json_.BeginArray();
        json_.BeginObject();
        WriteTool(ownRules);
        json_.Name("results");
        json_.BeginArray();
        EndLine();
    }

    void TakeRecord(const CheckedRecord& record) override {
        const Item& item = record.item;
        const std::string_view controlNumber = item.record.ControlNumber();
        for (const Remark& remark : record.remarks) {
            Write(item, {*remark.rule, static_cast<std::size_t>(remark.rule->id), remark.severity,
                         RemarkText(remark), remark.place, controlNumber, item.offset,
                         item.bytes.size()});
        }
    }

    void TakeDamage(const Item& item, const std::string& reason) override {
        Write(item, {kDamage, damageIndex_, kDamage.severity, reason, Place::OfRecord(),
                     item.controlNumber, item.fault->offset, 0});
    }

    void Finish(const CheckTotals&) override {
        json_.EndArray();
        json_.Name("invocations");
        json_.BeginArray();
        json_.BeginObject();
        json_.Member("executionSuccessful", true);
        json_.EndObject();
        json_.EndArray();
        json_.EndObject();
        json_.EndArray();
        json_.EndObject();
        EndLine();
        output_->Finish();
    }

private:
    void WriteTool(std::span<const Rule> ownRules) {
        json_.Name("tool");
        json_.BeginObject();
        json_.Name("driver");
        json_.BeginObject();
        json_.Member("name", "quillory");
        json_.Name("rules");
        json_.BeginArray();
        for (const Rule& rule : Rules()) WriteRule(rule, json_);
        for (const Rule& rule : ownRules) WriteRule(rule, json_);
        WriteRule(kDamage, json_);
        json_.EndArray();
        json_.EndObject();
        json_.EndObject();
    }

    void Write(const Item& item, const Result& result) {
        const std::string name = NameOfPlace(item, result);
        json_.BeginObject();
        json_.Member("ruleId", result.rule.name);
        json_.Member("ruleIndex", result.index);
        json_.Member("level", SeverityText(result.severity));
        WriteText("message", name + ": " + result.text, json_);
        json_.Name("locations");
        json_.BeginArray();
        json_.BeginObject();
        WriteRegion(result);
        WriteLogicalLocation(item, result, name);
        json_.EndObject();
        json_.EndArray();
        json_.EndObject();
        EndLine();
    }

    // Standard input has no address.
    void WriteRegion(const Result& result) {
        if (reporter_.File() == kStandardInput) return;
        json_.Name("physicalLocation");
        json_.BeginObject();
        json_.Name("artifactLocation");
        json_.BeginObject();
        json_.Member("uri", FileUri(reporter_.File()));
        json_.EndObject();
        json_.Name("region");
        json_.BeginObject();
        json_.Member("byteOffset", result.offset);
        if (result.length > 0) json_.Member("byteLength", result.length);
        json_.EndObject();
        json_.EndObject();
    }

    void WriteLogicalLocation(const Item& item, const Result& result, const std::string& name) {
        const Place& place = result.place;
        json_.Name("logicalLocations");
        json_.BeginArray();
        json_.BeginObject();
        json_.MemberIfAny("name", PlaceText(place));
        json_.Member("fullyQualifiedName", name);
        json_.Name("properties");
        json_.BeginObject();
        json_.Member("record", item.number);
        json_.MemberIfAny("control_number", result.controlNumber);
        json_.MemberIfAny("tag", place.Tag());
        if (place.occurrence != 0) json_.Member("occurrence", place.occurrence);
        if (place.code != '\0') json_.Member("subfield", std::string_view(&place.code, 1));
        json_.EndObject();
        json_.EndObject();
        json_.EndArray();
    }

    void EndLine() {
        output_->Write(text_ + '\n');
        text_.clear();
    }

    std::unique_ptr<Output> output_;
    Reporter& reporter_;
    std::size_t damageIndex_;
    std::string text_;
    Losses losses_;  // not reported: the records themselves stay as they are
    JsonWriter json_{text_, losses_};
};

}  // namespace

std::unique_ptr<CheckReport> MakeSarifCheckReport(std::unique_ptr<Output> output,
                                                  const CheckReportOptions& options,
                                                  Reporter& reporter) {
    return std::make_unique<SarifReport>(std::move(output), options.ownRules, reporter);
}

}  // namespace quillory
