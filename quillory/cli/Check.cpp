#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/exchange/Input.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/CheckSettingsFile.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/RuleList.h>
#include <quillory/rules/CheckSettings.h>
#include <quillory/rules/Rule.h>

#include <deque>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace quillory {
namespace {

struct CheckOptions {
    CheckFilesOptions files;
    std::optional<Severity> failsOn;
    CheckSettingsChoice settings;
    ReporterOptions messages;
    PolicyOptions policy;
    RuleChoice rules;
    CheckReportOptions report;
    bool listsRules = false;
    bool showsRepertoire = false;
};

constexpr const char* kCheckDetails =
    "Every rule is an error, a warning or a note; --rules lists all, with the reason for each.\n"
    "Those of the export have the weight that the policy gives them.\n"
    "Status: 0 if nothing weighs as much as --fail-on says; 1 with such findings or damage; 2 for\n"
    "wrong usage, or a file that can't be read or written.";

// "a,b" is two names.
std::vector<std::string> Divided(const std::vector<std::string>& lists) {
    std::vector<std::string> names;
    for (const std::string& list : lists) {
        std::istringstream rest(list);
        for (std::string name; std::getline(rest, name, ',');) names.push_back(name);
    }
    return names;
}

RuleWeights WeightsOf(const CheckSettings& settings, const CheckOptions& options) {
    RuleWeights weights(settings.choice, settings.own.List());
    if (options.showsRepertoire) weights.Choose({{{"outside-marc8", "note"}}, {}, {}});
    weights.Choose(
        {options.rules.severities, Divided(options.rules.only), Divided(options.rules.skip)});
    return weights;
}

// The rules in force, and what holds records against them.
class Inspection {
public:
    Inspection(const CheckOptions& options, const CheckSettingsFile& file,
               const CheckerOptions& checking, const CodeLists& lists)
        : checker_(checking),
          settings_(file.Read({checking.charset,
                               [this](const Record& record) {
                                   return IsValidUnder(checker_, record, findings_);
                               }})),
          inspector_(checking, WeightsOf(settings_, options), lists, &settings_.own) {}
    Inspection(const Inspection&) = delete;
    Inspection& operator=(const Inspection&) = delete;

    Checker& GetChecker() { return checker_; }
    const CheckSettings& Settings() const { return settings_; }
    Inspector& GetInspector() { return inspector_; }

private:
    Checker checker_;
    std::vector<Finding> findings_;
    CheckSettings settings_;
    Inspector inspector_;
};

Status ListRules(const CheckOptions& options, const std::optional<std::string>& file) {
    const auto isValid = [](const Record&) { return true; };  // no record is looked at
    const CheckSettings settings = CheckSettingsFile(file).Read({kCharsetAuto, isValid});
    const RuleWeights weights = WeightsOf(settings, options);
    const auto list = options.report.format == kCheckJsonl ? RulesJsonl : RulesText;
    WriteOutput(options.report.output, list(settings.own.List(), weights));
    return kStatusWell;
}

void CheckOutput(const CheckOptions& options, const std::optional<std::string>& settings) {
    std::vector<std::string> inputs = options.files.input.files;
    if (settings) inputs.push_back(*settings);
    CheckNotAnInput(inputs, options.report.output);
}

CheckReportOptions ReportOptionsOf(const CheckOptions& options, const CheckSettings& settings) {
    CheckReportOptions report = options.report;
    report.ownRules = settings.own.List();
    return report;
}

CheckFilesOptions FilesOptionsOf(const CheckOptions& options, const CheckSettings& settings) {
    CheckFilesOptions files = options.files;
    files.failsOn = options.failsOn.value_or(settings.failsOn.value_or(files.failsOn));
    return files;
}

Status RunCheck(const CheckOptions& options) {
    const auto settingsFile = FindCheckSettings(options.settings, options.files.input.files);
    CheckOutput(options, settingsFile);
    if (options.listsRules) return ListRules(options, settingsFile);
    const SettingsKeeper keeper;
    const auto checking = MakeChecker(options.policy, options.files.input.charset).GetOptions();
    const CheckSettingsFile file(settingsFile);
    const CodeLists lists = LoadCodeLists();
    Inspection inspection(options, file, checking, lists);
    const CheckSettings& settings = inspection.Settings();
    TerminalPort terminal;
    Reporter reporter(terminal, options.messages);
    if (settingsFile && options.messages.all) reporter.Say(*settingsFile + " sets the rules");
    const auto report = MakeCheckReport(ReportOptionsOf(options, settings), reporter);
    std::deque<Inspection> others;
    const auto another = [&]() -> Inspector& {
        return others.emplace_back(options, file, checking, lists).GetInspector();
    };
    return CheckFiles(FilesOptionsOf(options, settings), inspection.GetChecker(),
                      inspection.GetInspector(), *report, reporter, another);
}

std::vector<std::string> RuleNames() {
    std::vector<std::string> names;
    for (const Rule& rule : Rules()) names.emplace_back(rule.name);
    return names;
}

void DeclareRules(Arguments& command, CheckOptions& options) {
    command
        .Option("--config", options.settings.file,
                "Settings for checks, with rules of your own; by default a quillory-check.toml "
                "beside the files, or else in the folder of the settings")
        .File();
    command.Flag("--no-config", options.settings.isNone, "No settings for checks")
        .Excludes("--config");
    command.Flag("--rules", options.listsRules, "List the rules, with the reason for each");
    command.KeyValue("--rule", options.rules.severities, "RULE=error|warning|note|off",
                     "The weight of one rule; may be given several times");
    command
        .Option("--only", options.rules.only,
                "Only this rule, or several with commas between them; may be given several times")
        .Shown("RULE")
        .NeverEmpty()
        .Offers(RuleNames());
    command
        .Option(
            "--skip", options.rules.skip,
            "All rules but this, or several with commas between them; may be given several times")
        .Shown("RULE")
        .NeverEmpty()
        .Offers(RuleNames());
    command.Flag("--repertoire", options.showsRepertoire,
                 "Note the characters that MARC-8 lacks; the same as --rule outside-marc8=note");
    DeclareFailOn(command, options.failsOn);
}

}  // namespace

void DeclareCheck(Arguments& command) {
    CheckOptions& options = command.Runs(RunCheck);
    command.Footer(kCheckDetails);
    DeclareInput(command, options.files.input, options.messages);
    DeclareJobs(command, options.files.input.crew);
    DeclareRules(command, options);
    DeclarePolicy(command, options.policy);
    command.Choice("--format", options.report.format, CheckFormatNames(),
                   "Form of the report; by default that of the output's name");
    DeclareReportFile(command, options.report.output);
    command.Flag("--each", options.report.showsEach,
                 "Every finding as text, not only the first three of each rule; --quiet does so, "
                 "too, without the table at the end");
    command.Option(
        "--rows", options.report.rows,
        "Findings that a page of HTML shows, 0 for all; it counts all in any case. Lines of JSON "
        "have the fields of about as many records");
}

}  // namespace quillory
