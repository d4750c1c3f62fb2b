#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/ExtractFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/ValueTables.h>

namespace quillory {
namespace {

struct ExtractCommand {
    ExtractOptions extract;
    TableOptions table;
    bool hasNoHeader = false;
    ReporterOptions messages;
};

constexpr const char* kExtractDetails =
    "A column for each place, a row for each record, in UTF-8. A whole field is shown without its\n"
    "indicators, subfield codes and $6; subfields that are named together, as in 245ab, are one\n"
    "value.\n"
    "--repeat rows gives each value a row of its own: a column with one value has it in all rows "
    "of\n"
    "a record, a column with several has the next one in each. jsonl has an object for each row,\n"
    "with an array of values unless each has a row.\n"
    "Status: 0 if all is well; 1 with damage, or with bytes that are not a character, which "
    "become\n"
    "U+FFFD; 2 for wrong usage, or a file that can't be read or written.";

Status RunExtract(const ExtractCommand& command) {
    CheckNotAnInput(command.extract.input.files, command.table.output);
    CheckNotTheSame(command.extract.rejects, command.table.output, "the table and the rejects");
    TableOptions options = command.table;
    options.hasHeader = !command.hasNoHeader;
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    const auto table = MakeValueTable(options);
    return ExtractFiles(command.extract, *table, reporter);
}

}  // namespace

void DeclareExtract(Arguments& command) {
    ExtractCommand& options = command.Runs(RunExtract);
    command.Footer(kExtractDetails);
    DeclareInput(command, options.extract.input, options.messages);
    DeclareJobs(command, options.extract.input.crew);
    command
        .Option("--fields", options.extract.fields,
                "Places, a column for each, such as 001,245ab,650a,008/35-37")
        .Shown("PLACES")
        .Required();
    DeclareReportFile(command, options.table.output);
    command.Choice("--format", options.table.format,
                   {{"tsv", kTableTsv}, {"csv", kTableCsv}, {"jsonl", kTableJsonl}},
                   "Form of the table; by default that of the output's name, or else tsv");
    command.Choice("--repeat", options.table.isRowEach, {{"join", false}, {"rows", true}},
                   "Several values of a record: joined in one cell, or a row for each; join if not "
                   "given");
    command.Option("--separator", options.table.separator,
                   "What stands between joined values; \"; \" if not given");
    command.Flag("--no-header", options.hasNoHeader, "Without the row that names the columns");
    command.Option("--rejects", options.extract.rejects, "Where the bytes of what is no record go")
        .File();
}

}  // namespace quillory
