#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/EditFiles.h>
#include <quillory/jobs/OutputFiles.h>

#include <algorithm>

namespace quillory {
namespace {

// The character set of records when they are edited; auto if each keeps its own.
Charset EditCharset(const InputOptions& input, const OutputOptions& output) {
    const Charset charset = CharsetOfOutput(output);
    return charset != kCharsetAuto ? charset : input.charset;
}

EditorOptions EditorOptionsOf(const EditFilesOptions& options, const EditReport& report) {
    const bool isIso2709 = &FormOfOutput(options.output) == &Forms().front();
    return {{EditCharset(options.input, options.output), options.output.normalForm},
            isIso2709 && options.output.writing.oversize == kOversizeRefuse,
            report.WantsLines()};
}

}  // namespace

void SayRefused(const Item& item, const Fault& why, Reporter& reporter) {
    reporter.Say(item, {FaultCode::kEditRefused, why.place, FaultReason(why)});
}

Status EditFiles(const EditFilesOptions& options, EditTask task, EditReport& report,
                 Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.output.output);
    CheckNotAnInput(options.input.files, options.output.rejects);
    RecordEditor editor(std::move(task), EditorOptionsOf(options, report));
    EditTotals totals;
    const auto edit = [&](Item& item, Losses& losses) {
        const Edit& done = editor.Carry(item.record, losses);
        totals.Count(done);
        if (done.refused) SayRefused(item, *done.refused, reporter);
        if (!done.changes.empty()) report.TakeRecord(item, done);
        return std::string();
    };
    const ItemSource files = [&](const auto& take) {
        return ReadFiles(options.input, reporter, take);
    };
    OutputOptions output = options.output;
    output.isDryRun = options.isDryRun;
    output.completeBeside = [&report] { report.Complete(); };
    const Status done = WriteItems(files, options.input.charset, output, reporter, edit);
    report.Finish(totals, options.isDryRun);
    const bool hasFindings = totals.refused > 0 || (options.isDryRun && totals.edited > 0);
    return std::max(done, hasFindings ? kStatusFindings : kStatusWell);
}

}  // namespace quillory
