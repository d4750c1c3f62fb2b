#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/CheckReports.h>

namespace quillory {
namespace {

struct CheckOptions {
    InputOptions input;
    ReporterOptions messages;
    PolicyOptions policy;
    CheckReportOptions report;
};

Status RunCheck(const CheckOptions& options) {
    CheckNotAnInput(options.input.files, options.report.output);
    const SettingsKeeper settings;
    Checker checker = MakeChecker(options.policy, options.input.charset);
    TerminalPort terminal;
    Reporter reporter(terminal, options.messages);
    const auto report = MakeCheckReport(options.report, reporter);
    return CheckFiles(options.input, checker, *report, reporter);
}

}  // namespace

void DeclareCheck(Arguments& command) {
    CheckOptions& options = command.Runs(RunCheck);
    DeclareInput(command, options.input, options.messages);
    DeclarePolicy(command, options.policy);
    command.Choice("--format", options.report.format, CheckFormatNames(),
                   "Form of the report; by default that of the output's name");
    command.Option("-o,--output", options.report.output,
                   "File to write; none, or -, is standard output");
    command.Option("--rows", options.report.rows,
                   "Findings that a page of HTML shows, 0 for all; it counts all in any case");
}

}  // namespace quillory
