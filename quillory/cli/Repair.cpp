#include <quillory/checks/RecordRepair.h>
#include <quillory/cli/Carrier.h>
#include <quillory/cli/Commands.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/Library.h>
#include <quillory/cli/OutputOptions.h>
#include <quillory/cli/RepairReport.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace quillory {
namespace {

struct RepairCommand {
    InputOptions input;
    OutputOptions output;
    RepairOptions repair;
    std::string report;
    bool isDryRun = false;
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

// Hands on the records of the files repaired.
class RepairedFiles {
public:
    RepairedFiles(const RepairCommand& command, const CodeLists& lists, Reporter& reporter)
        : command_(command),
          reporter_(reporter),
          repairer_(lists, command.repair),
          report_(command.report, lists, reporter) {}

    Status Read(const std::function<bool(Item&)>& take) {
        return ReadFiles(command_.input, reporter_, [&](Item& item) {
            if (item.kind == kItemRecord) report_.Take(item, repairer_.Take(item.record));
            return take(item);
        });
    }

    Status Finish() {
        report_.Finish();
        report_.Summarize(command_.isDryRun);
        const bool hasFindings = report_.HasLeft() || (command_.isDryRun && report_.HasRepairs());
        return hasFindings ? kStatusFindings : kStatusWell;
    }

private:
    const RepairCommand& command_;
    Reporter& reporter_;
    RecordRepairer repairer_;
    RepairReport report_;
};

Status DryRun(RepairedFiles& files, Reporter& reporter) {
    Status damage = kStatusWell;
    const Status read = files.Read([&](Item& item) {
        const bool isDamaged = item.kind != kItemRecord || !item.reason.empty();
        if (isDamaged) {
            damage = kStatusFindings;
            if (!item.continues) reporter.SayFault(item);
        }
        return true;
    });
    return std::max(read, damage);
}

Status RunRepair(const RepairCommand& command) {
    for (const std::string& path :
         {command.output.output, command.output.rejects, command.report}) {
        CheckNotAnInput(command.input.files, path);
    }
    CheckNotTheSame(command.report, command.output.output, "the records and the report");
    CheckNotTheSame(command.report, command.output.rejects, "the rejects and the report");
    if (!LoadWorkforms()) return kStatusFailed;
    const CodeLists lists = LoadCodeLists();
    Reporter reporter(command.input.quiet, command.input.verbose);
    RepairedFiles files(command, lists, reporter);
    const ItemSource source = [&](const auto& take) { return files.Read(take); };
    const Status done = command.isDryRun
                            ? DryRun(files, reporter)
                            : WriteItems(source, command.input.charset, command.output, reporter);
    return std::max(done, files.Finish());
}

}  // namespace

void AddRepair(CLI::App& program, Run& run) {
    auto options = std::make_shared<RepairCommand>();
    CLI::App* command =
        program.add_subcommand("repair", "Put the coded control fields of records right");
    command->footer(kDetails);
    AddInputOptions(*command, options->input);
    AddOutputOptions(*command, options->output);
    command->add_flag("--strict", options->repair.strict,
                      "Replace what the library's lists lack, even if the format allows it");
    command->add_option("--report", options->report,
                        "Where each repair and each value kept is told as a line of JSON");
    command
        ->add_flag("-n,--dry-run", options->isDryRun,
                   "Write no records, only say what would be repaired")
        ->excludes("--output")
        ->excludes("--rejects");
    command->callback([options, &run] { run = [options] { return RunRepair(*options); }; });
}

}  // namespace quillory
