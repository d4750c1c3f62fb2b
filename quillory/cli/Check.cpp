#include <quillory/cli/Choice.h>
#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/CheckReports.h>

#include <memory>

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
    std::optional<Checker> checker = MakeChecker(options.policy, options.input.charset);
    if (!checker) return kStatusFailed;
    TerminalPort terminal;
    Reporter reporter(terminal, options.messages);
    const auto report = MakeCheckReport(options.report, reporter);
    return CheckFiles(options.input, *checker, *report, reporter);
}

}  // namespace

void AddCheck(CLI::App& program, Run& run) {
    auto options = std::make_shared<CheckOptions>();
    CLI::App* command =
        program.add_subcommand("check", "Find what stops or mars records before they leave");
    AddInputOptions(*command, options->input, options->messages);
    AddPolicyOptions(*command, options->policy);
    AddChoice<CheckFormat>(*command, "--format", options->report.format,
                           {{"text", kCheckText}, {"jsonl", kCheckJsonl}, {"html", kCheckHtml}},
                           "Form of the report; told by the name of the output if not given");
    command->add_option("-o,--output", options->report.output,
                        "File to write; none, or -, is standard output");
    command->add_option("--rows", options->report.rows,
                        "Findings that a page of HTML shows, 0 for all; it counts all in any case");
    command->callback([options, &run] { run = [options] { return RunCheck(*options); }; });
}

}  // namespace quillory
