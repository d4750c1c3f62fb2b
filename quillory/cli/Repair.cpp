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

constexpr const char* kRepairDetails =
    "The Leader, 006, 007 and 008 of bibliographic records are tested against the codes of the\n"
    "format. A value that the format has, or ever had, stays. For any other a code comes only if\n"
    "the value itself or another field of the record is certain to mean it; else \"not coded\" "
    "(|)\n"
    "comes, or the value is left and named. Nothing is said that the record did not say. --strict\n"
    "gives what the library makes of a record: the defaults of its workforms for all that its\n"
    "own, older lists lack.\n"
    "A field that is too short is filled up with fill characters, and one that is too long loses\n"
    "bytes that say nothing. An 008 whose country and language are not in their places stays as "
    "it\n"
    "is, as does a 006 or 007 of an unknown first byte, and a record of an unknown leader/06; "
    "each\n"
    "is named. Leader 00-04, 09 and 12-16 are the file's. Records of authorities, holdings,\n"
    "classification and communities are passed through.\n"
    "A table at the end counts the repairs by class and element:\n";

constexpr const char* kStatusDetails =
    "Status: 0 if every record was written, with or without repairs; 1 with damage, rejects, or\n"
    "values or fields left as they were, and for --dry-run with repairs to be made; 2 for wrong\n"
    "usage, or a file that can't be read or written.";

std::string Details() {
    std::string text = kRepairDetails;
    for (const RepairClassRow& row : RepairClasses()) {
        std::string name(row.name);
        name.resize(16, ' ');
        text += "  " + name + std::string(row.text) + "\n";
    }
    return text + kStatusDetails;
}

Choices<RepairClass> ClassChoices() {
    Choices<RepairClass> choices;
    for (const RepairClassRow& row : RepairClasses()) {
        choices.emplace_back(row.name, row.repairClass);
    }
    return choices;
}

void CheckRepairOutputs(const RepairCommand& command) {
    const OutputOptions& output = command.repair.output;
    for (const std::string& path : {output.output, output.rejects, command.report}) {
        CheckNotAnInput(command.repair.input.files, path);
    }
    CheckNotTheSame(command.report, output.output, "the records and the report");
    CheckNotTheSame(command.report, output.rejects, "the rejects and the report");
}

Status RunRepair(const RepairCommand& command) {
    CheckRepairOutputs(command);
    if (command.repair.repair.strict) LoadWorkforms();
    const CodeLists lists = LoadCodeLists();
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    RepairMessages report(MakeRepairFile(command.report, lists, reporter), lists, reporter);
    return RepairFiles(command.repair, lists, report, reporter);
}

}  // namespace

void DeclareRepair(Arguments& command) {
    RepairCommand& options = command.Runs(RunRepair);
    command.Footer(Details());
    DeclareInput(command, options.repair.input, options.messages);
    DeclareJobs(command, options.repair.input.crew);
    DeclareOutput(command, options.repair.output);
    RepairOptions& repair = options.repair.repair;
    command.Choice("--only", repair.classes.only, ClassChoices(), "Only repairs of this class");
    command.Choice("--skip", repair.classes.skip, ClassChoices(), "No repairs of this class");
    command
        .Flag("--strict", repair.strict,
              "The library's own result: its defaults for all that its lists lack")
        .Excludes("--only")
        .Excludes("--skip");
    command.Flag("--each", options.messages.all, "Name each repair, and not only each class");
    command
        .Option("--report", options.report,
                "File for a page (.html), or for a line of JSON about each repair")
        .File();
    command
        .Flag("-n,--dry-run", options.repair.isDryRun,
              "Write no records, only say what would be repaired")
        .Excludes("--output")
        .Excludes("--rejects");
}

}  // namespace quillory
