#include <quillory/exchange/ItemMemory.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/EditFiles.h>
#include <quillory/jobs/OutputFiles.h>

#include <algorithm>
#include <memory>
#include <utility>

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

// Edits records as a preparation, and tells what became of them.
class EditRun {
public:
    EditRun(const EditFilesOptions& options, EditReport& report)
        : options_(EditorOptionsOf(options, report)), report_(report) {}

    Preparation Prepare(EditTask task, Reporter& reporter) {
        const auto editor = std::make_shared<RecordEditor>(std::move(task), options_);
        return [this, editor, &reporter](Item& item, Losses& losses) {
            const Edit& done = editor->Carry(item.record, losses);
            if (done.refused) SayRefused(item, *done.refused, reporter);
            totals_.Count(done);
            if (!done.changes.empty()) report_.TakeRecord(item, done);
            return std::string();
        };
    }

    // What is told and counted comes as steps.
    PreparationShare PrepareShare(EditTask task, Reporter& own, Steps& steps) {
        const auto editor = std::make_shared<RecordEditor>(std::move(task), options_);
        const auto totals = std::make_shared<EditTotals>();  // of a batch
        const auto prepare = [this, editor, totals, &own, &steps](Item& item, Losses& losses) {
            const Edit& done = editor->Carry(item.record, losses);
            if (done.refused) SayRefused(item, *done.refused, own);
            totals->Count(done);
            if (!done.changes.empty()) Tell(item, done, steps);
            return std::string();
        };
        const auto endBatch = [this, totals, &steps] {
            steps.emplace_back(
                [this, counted = std::exchange(*totals, {})] { totals_.Add(counted); });
        };
        return {prepare, endBatch};
    }

    const EditTotals& Totals() const { return totals_; }

private:
    void Tell(const Item& item, const Edit& done, Steps& steps) {
        const auto kept = std::make_shared<KeptItem>(item);
        steps.emplace_back([this, done, kept] { report_.TakeRecord(kept->Get(), done); });
    }

    EditorOptions options_;
    EditReport& report_;
    EditTotals totals_;
};

}  // namespace

void SayRefused(const Item& item, const Fault& why, Reporter& reporter) {
    reporter.Say(item, {FaultCode::kEditRefused, why.place, FaultReason(why)});
}

Status EditFiles(const EditFilesOptions& options, EditTask task, EditReport& report,
                 Reporter& reporter, const EditTaskMaker& makeTask) {
    CheckNotAnInput(options.input.files, options.output.output);
    CheckNotAnInput(options.input.files, options.output.rejects);
    EditRun run(options, report);
    const Preparation edit = run.Prepare(std::move(task), reporter);
    PreparationMaker makeEdit;
    if (makeTask) {
        makeEdit = [&](Reporter& own, Steps& steps) {
            return run.PrepareShare(makeTask(), own, steps);
        };
    }
    const ItemSource files = [&](const auto& take) {
        return ReadFiles(options.input, reporter, take);
    };
    OutputOptions output = options.output;
    output.isDryRun = options.isDryRun;
    output.completeBeside = [&report] { report.Complete(); };
    const Status done = WriteItems(files, options.input.charset, output, reporter, edit, makeEdit);
    const EditTotals& totals = run.Totals();
    report.Finish(totals, options.isDryRun);
    const bool hasFindings = totals.refused > 0 || (options.isDryRun && totals.edited > 0);
    return std::max(done, hasFindings ? kStatusFindings : kStatusWell);
}

}  // namespace quillory
