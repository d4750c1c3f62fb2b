#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/RepairFiles.h>
#include <quillory/reports/RepairMessages.h>

namespace quillory {
namespace {

struct RepairCommand {
    RepairFilesOptions repair;
    ReporterOptions messages;
    std::string report;
};

constexpr const char* kDetails =
    "The Leader, 006, 007 and 008 of bibliographic records are tested against the library's code\n"
    "lists and the workform of their material, which Leader, 006, 007 and 008 tell. A value that\n"
    "the library would replace stays if the format allows it, or once did; --strict lets the\n"
    "library have its way. A field of the wrong length gets that of its format: filled up with\n"
    "fill characters, or cut at its end. An 008 of the wrong length whose country and language "
    "are\n"
    "not in their places stays as it is, as does a 006 or 007 of an unknown first byte, and a\n"
    "record of an unknown leader/06; each is named. Leader 00-04, 09 and 12-16 are the file's.\n"
    "Records of authorities, holdings, classification and communities are passed through.\n"
    "Status: 0 if every record was written, with or without repairs; 1 with damage, rejects or\n"
    "fields left as they were, and for --dry-run with repairs to be made; 2 for wrong usage, or a\n"
    "file that can't be read or written.";

void CheckOutputs(const RepairCommand& command) {
    const OutputOptions& output = command.repair.output;
    for (const std::string& path : {output.output, output.rejects, command.report}) {
        CheckNotAnInput(command.repair.input.files, path);
    }
    CheckNotTheSame(command.report, output.output, "the records and the report");
    CheckNotTheSame(command.report, output.rejects, "the rejects and the report");
}

Status RunRepair(const RepairCommand& command) {
    CheckOutputs(command);
    LoadWorkforms();
    const CodeLists lists = LoadCodeLists();
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    RepairMessages report(command.report, lists, reporter);
    return RepairFiles(command.repair, lists, report, reporter);
}

}  // namespace

void DeclareRepair(Arguments& command) {
    RepairCommand& options = command.Runs(RunRepair);
    command.Footer(kDetails);
    DeclareInput(command, options.repair.input, options.messages);
    DeclareOutput(command, options.repair.output);
    command.Flag("--strict", options.repair.repair.strict,
                 "Replace what the library's lists lack, even if the format allows it");
    command.Option("--report", options.report,
                   "File for a line of JSON about each repair and each value kept");
    command
        .Flag("-n,--dry-run", options.repair.isDryRun,
              "Write no records, only say what would be repaired")
        .Excludes("--output")
        .Excludes("--rejects");
}

}  // namespace quillory
