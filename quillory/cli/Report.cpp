#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/ReportFiles.h>
#include <quillory/reports/CheckSums.h>

#include <optional>

namespace quillory {
namespace {

struct ReportCommand {
    ReportFilesOptions files;
    ReporterOptions messages;
    CheckReportOptions report;
    std::optional<Severity> failsOn;
};

constexpr const char* kReportDetails =
    "Each file is what `quillory check` wrote as lines of JSON. The report is that of one check "
    "of\n"
    "all the records: numbers that come twice are found in records of different files, too. Text\n"
    "and JSON give sums by rule, material, field and file; a page (HTML) and lines of JSON are\n"
    "those of `quillory check`.\n"
    "Status: 0 if nothing weighs as much as --fail-on says; 1 with such findings or damage; 2 for\n"
    "wrong usage, or a file that is no result of a check.";

Status RunReport(const ReportCommand& command) {
    ReportFilesOptions files = command.files;
    files.failsOn = command.failsOn.value_or(files.failsOn);
    CheckNotAnInput(files.files, command.report.output);
    LoadSettings();
    LoadDictionaries();
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    const auto report = MakeSumsReport(command.report, reporter);
    return ReportFiles(files, *report, reporter);
}

}  // namespace

void DeclareReport(Arguments& command) {
    ReportCommand& options = command.Runs(RunReport);
    command.Footer(kReportDetails);
    command
        .Positional("FILE", options.files.files,
                    "Results of checks, lines of JSON; none, or -, is standard input")
        .File();
    command.Choice("--format", options.report.format, SumsFormatNames(),
                   "Form of the report; by default that of the output's name");
    DeclareReportFile(command, options.report.output);
    command.Option("--rows", options.report.rows,
                   "Findings that a page of HTML shows, 0 for all; it counts all in any case");
    DeclareFailOn(command, options.failsOn);
    command.Option("--memory", options.files.memory, "Memory to sort numbers in; 256M if not given")
        .Shown("SIZE");
    DeclareMessages(command, options.messages);
}

}  // namespace quillory
