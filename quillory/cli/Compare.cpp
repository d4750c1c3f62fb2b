#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/CompareReports.h>

namespace quillory {
namespace {

struct CompareCommand {
    CompareOptions compare;
    CompareReportOptions report;
    ReporterOptions messages;
};

constexpr const char* kCompareDetails =
    "FILE is two files: the one before, and the one after. Records go together by their keys, as "
    "in\n"
    "dedupe, whatever their order; their fields are compared as text, whatever the forms and\n"
    "character sets. Leader 00-04, 09 and 12-16 belong to the file and are not compared. Records\n"
    "with one and the same key go together in their order, and are named. Those without a key are\n"
    "the same if they are equal; the others are named.\n"
    "Status: 0 if the files hold the same records, 1 if they differ or hold damage, 2 for wrong "
    "usage, or a file that can't be read or written.";

Status RunCompare(const CompareCommand& command) {
    CheckNotAnInput(command.compare.input.files, command.report.output);
    CheckNotTheSame(command.compare.rejects, command.report.output, "the report and the rejects");
    CompareReportOptions options = command.report;
    options.colour = options.output == "-" && ShowOptionsOf({}).colour;
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    const auto report = MakeCompareReport(options, reporter);
    return CompareFiles(command.compare, *report, reporter);
}

}  // namespace

void DeclareCompare(Arguments& command) {
    CompareCommand& options = command.Runs(RunCompare);
    command.Footer(kCompareDetails);
    DeclareInputOf(command, "Two files: the one before, and the one after; - is standard input",
                   options.compare.input, options.messages);
    command
        .Option("--by", options.compare.by,
                "What records that go together have in common, as in dedupe; 001 if not given")
        .Shown("PLACES")
        .Offers(UsualMatchPlaces());
    command
        .Option("--ignore", options.compare.ignored,
                "Places that are not compared, such as 005,9XX,008/00-05")
        .Shown("PLACES");
    DeclareReportFile(command, options.report.output);
    command.Choice("--format", options.report.format,
                   {{"text", kCompareText}, {"jsonl", kCompareJsonl}, {"html", kCompareHtml}},
                   "Form of the report; chosen by the name of the output if not given");
    command.Option("--rows", options.report.rows,
                   "Rows that a page of HTML shows, 0 for all; it counts all in any case");
    command.Option("--rejects", options.compare.rejects, "Where the bytes of what is no record go")
        .File();
}

}  // namespace quillory
