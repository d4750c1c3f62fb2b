#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/RuleList.h>

namespace quillory {
namespace {

struct CheckOptions {
    CheckFilesOptions files;
    ReporterOptions messages;
    PolicyOptions policy;
    RuleChoice rules;
    CheckReportOptions report;
    bool listsRules = false;
    bool showsRepertoire = false;
};

constexpr const char* kDetails =
    "Every rule is an error, a warning or a note; --rules lists all, with the reason for each.\n"
    "Those of the export have the weight that the policy gives them.\n"
    "Status: 0 if nothing weighs as much as --fail-on says; 1 with such findings or damage; 2 for\n"
    "wrong usage, or a file that can't be read or written.";

Status ListRules(const CheckReportOptions& report) {
    WriteOutput(report.output, report.format == kCheckJsonl ? RulesJsonl() : RulesText());
    return kStatusWell;
}

Status RunCheck(const CheckOptions& options) {
    if (options.listsRules) return ListRules(options.report);
    CheckNotAnInput(options.files.input.files, options.report.output);
    const SettingsKeeper settings;
    Checker checker = MakeChecker(options.policy, options.files.input.charset);
    const CodeLists lists = LoadCodeLists();
    RuleChoice rules = options.rules;
    if (options.showsRepertoire)
        rules.severities.insert(rules.severities.begin(), {"outside-marc8", "note"});
    Inspector inspector(checker.GetOptions(), RuleWeights(rules), lists);
    TerminalPort terminal;
    Reporter reporter(terminal, options.messages);
    const auto report = MakeCheckReport(options.report, reporter);
    return CheckFiles(options.files, checker, inspector, *report, reporter);
}

void DeclareRules(Arguments& command, CheckOptions& options) {
    command.Flag("--rules", options.listsRules, "List the rules, with the reason for each");
    command.KeyValue("--rule", options.rules.severities, "RULE=error|warning|note|off",
                     "What one rule weighs; may be given often");
    command.Option("--only", options.rules.only, "Only this rule; may be given often")
        .Shown("RULE");
    command.Option("--skip", options.rules.skip, "All but this rule; may be given often")
        .Shown("RULE");
    command.Flag("--repertoire", options.showsRepertoire,
                 "Note the characters that MARC-8 lacks; the same as --rule outside-marc8=note");
    command.Choice(
        "--fail-on", options.files.failsOn,
        {{"error", Severity::Error}, {"warning", Severity::Warning}, {"note", Severity::Note}},
        "From what weight on findings make the status 1; a warning if not given");
}

}  // namespace

void DeclareCheck(Arguments& command) {
    CheckOptions& options = command.Runs(RunCheck);
    command.Footer(kDetails);
    DeclareInput(command, options.files.input, options.messages);
    DeclareRules(command, options);
    DeclarePolicy(command, options.policy);
    command.Choice("--format", options.report.format, CheckFormatNames(),
                   "Form of the report; by default that of the output's name");
    command
        .Option("-o,--output", options.report.output,
                "File to write; none, or -, is standard output")
        .File();
    command.Flag("--each", options.report.showsEach,
                 "Every finding as text, not the first three of each rule");
    command.Option("--rows", options.report.rows,
                   "Findings that a page of HTML shows, 0 for all; it counts all in any case");
}

}  // namespace quillory
