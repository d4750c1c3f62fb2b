#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/CountDocument.h>

namespace quillory {
namespace {

struct CountCommand {
    CountOptions count;
    ReporterOptions messages;
    CountDocumentOptions document;
    CountFormat format = kCountByName;
    std::string output = "-";
};

Status RunCount(const CountCommand& command) {
    CheckNotAnInput(command.count.input.files, command.output);
    if (command.document.names) {
        LoadSettings();
        LoadDictionaries();
    }
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    RecordCounts counts;
    const Status status = CountRecords(command.count, counts, reporter);
    WriteCounts(MakeCountDocument(counts, command.document), command.format, command.output);
    return status;
}

}  // namespace

void DeclareCount(Arguments& command) {
    CountCommand& options = command.Runs(RunCount);
    DeclareInput(command, options.count.input, options.messages);
    DeclareJobs(command, options.count.input.crew);
    command
        .Option("--values", options.count.values,
                "Count the values of these places, such as 008/35-37 or 650a, and name the codes; "
                "may be given several times")
        .Shown("PLACES");
    command.Option("--top", options.document.top,
                   "At most so many values of places, the most frequent; 0, as if not given, for "
                   "all");
    command.Flag("--subfields", options.document.subfields, "Count subfields by field and code");
    command.Flag("--indicators", options.document.indicators, "Count the values of indicators");
    command.Flag("--names", options.document.names, "With the names of fields and subfields");
    command.Choice("--format", options.format, CountFormatNames(),
                   "Form of the report; chosen by the name of the output if not given");
    DeclareReportFile(command, options.output);
}

}  // namespace quillory
