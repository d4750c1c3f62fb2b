#include <quillory/cli/Carrier.h>
#include <quillory/cli/CheckReport.h>
#include <quillory/cli/Choice.h>
#include <quillory/cli/Commands.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/PolicyOptions.h>

#include <algorithm>
#include <memory>

namespace quillory {
namespace {

struct CheckOptions {
    InputOptions input;
    PolicyOptions policy;
    CheckReportOptions report;
};

// Checks records as they come, and tells the report.
class CheckRun {
public:
    CheckRun(Checker& checker, CheckReport& report, Reporter& reporter)
        : checker_(checker), report_(report), reporter_(reporter) {}

    void Take(const Item& item) {
        if (!item.reason.empty() && !item.continues) TakeFault(item);
        if (item.kind != kItemRecord) return;
        checker_.Check(item.record, findings_);
        if (!findings_.empty()) status_ = kStatusFindings;
        const CheckedRecord record{item, findings_, checker_.GetPolicy().VerdictOf(findings_)};
        totals_.Count(record);
        report_.TakeRecord(record);
    }

    void Finish() { report_.Finish(totals_, checker_.GetPolicy()); }

    // Findings, if there was any, or damage.
    Status Result() const { return status_; }

private:
    void TakeFault(const Item& item) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
        if (item.kind == kItemDamaged) ++totals_.damaged;
        if (item.kind != kItemRecord) report_.TakeDamage(item);
    }

    Checker& checker_;
    CheckReport& report_;
    Reporter& reporter_;
    std::vector<Finding> findings_;
    CheckTotals totals_;
    Status status_ = kStatusWell;
};

Status RunCheck(const CheckOptions& options) {
    CheckNotAnInput(options.input.files, options.report.output);
    std::optional<Checker> checker = MakeChecker(options.policy, options.input.charset);
    if (!checker) return kStatusFailed;
    Reporter reporter(options.input.quiet, options.input.verbose);
    const auto report = MakeCheckReport(options.report, reporter);
    CheckRun run(*checker, *report, reporter);
    try {
        const Status read = ReadFiles(options.input, reporter, [&run](const Item& item) {
            run.Take(item);
            return true;
        });
        run.Finish();
        return std::max(read, run.Result());
    } catch (const ClosedPipe&) {
        return run.Result();
    }
}

}  // namespace

void AddCheck(CLI::App& program, Run& run) {
    auto options = std::make_shared<CheckOptions>();
    CLI::App* command =
        program.add_subcommand("check", "Find what stops or mars records before they leave");
    AddInputOptions(*command, options->input);
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
