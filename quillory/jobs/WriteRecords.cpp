#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/CarrierWorker.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {
namespace {

// Whether the name of a file has an ending, as "x.txt" has. A name such as /dev/fd/3 has none, and
// no more has one that only begins with a full stop.
bool HasEnding(std::string_view path) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::size_t at = name.rfind('.');
    return at != name.npos && at != 0 && name.find_first_not_of('.') < at && at + 1 < name.size();
}

std::string NamesOfForms() {
    std::string names;
    for (const Form& form : Forms()) names.append(names.empty() ? "" : ", ").append(form.name);
    return names;
}

CarrierOptions CarrierOptionsOf(const OutputOptions& options, Charset from,
                                const Preparation& prepare) {
    const Charset to = CharsetOfOutput(options);
    const bool verify = options.verify || to == kCharsetUtf8;
    return {{from, to, options.normalForm, verify, options.replaceInvalid},
            options.eachLoss,
            options.rejects,
            prepare,
            options.isDryRun,
            options.force};
}

ItemTaker TakerOf(Carrier& carrier) {
    return [&carrier](Item& item) {
        carrier.Take(item);
        return true;
    };
}

Status Carry(const ItemSource& source, const ItemJob& job, const OutputOptions& options,
             Carrier& carrier, const Closing& closing) {
    try {
        carrier.Raise(source(job));
        closing.complete();
        carrier.Complete();
        if (options.completeBeside) options.completeBeside();
        carrier.Finish();
        closing.takeNames();
    } catch (const ClosedPipe&) {
        carrier.Finish();
        return carrier.Result();
    }
    carrier.Summarize();
    return carrier.Result();
}

}  // namespace

const Form& FormOfOutput(const OutputOptions& options) {
    const Form* form = options.form;
    if (form == nullptr) form = FormOfFileName(options.output);
    if (form == nullptr && HasEnding(options.output)) {
        throw UsageError(options.output, {FaultCode::kNoFormOfName, {}, NamesOfForms()});
    }
    return form != nullptr ? *form : Forms().front();
}

Charset CharsetOfOutput(const OutputOptions& options) {
    const Form& form = FormOfOutput(options);
    if (!form.isAlwaysUtf8) return options.charset;
    if (options.charset != kCharsetAuto && options.charset != kCharsetUtf8) {
        throw UsageError({FaultCode::kAlwaysUtf8,
                          {},
                          std::string(form.words),
                          std::string(CharsetName(options.charset))});
    }
    return kCharsetUtf8;
}

Status CarryItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  RecordWriter& writer, const Closing& closing, Reporter& reporter,
                  const Preparation& prepare) {
    Carrier carrier(CarrierOptionsOf(options, from, prepare), writer, reporter);
    return Carry(source, {TakerOf(carrier)}, options, carrier, closing);
}

Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare,
                  const PreparationMaker& makePreparation) {
    CheckNotTheSame(options.rejects, options.output, "the records and the rejects");
    CharsetOfOutput(options);  // what can't be is said before anything is made
    const Form& form = FormOfOutput(options);
    Output output(options.isDryRun ? "/dev/null" : options.output, OutputRole::kMain,
                  options.force);
    const auto writer = form.makeWriter(output, options.writing);
    const Closing closing{[&] {
                              writer->Finish();
                              output.Complete();
                          },
                          [&output] { output.Finish(); }};
    Carrier carrier(CarrierOptionsOf(options, from, prepare), *writer, reporter);
    CarriedRoom room;
    ItemJob job{TakerOf(carrier)};
    if (!prepare || makePreparation) {
        job.makeWorker = [&](Reporter& own, Steps& steps) {
            const PreparationShare share =
                prepare ? makePreparation(own, steps) : PreparationShare();
            return std::make_unique<CarrierWorker>(
                CarrierOptionsOf(options, from, share.prepare), form, options.writing, own, steps,
                CarrierWorker::Ends{share.endBatch, carrier, output, room});
        };
    }
    return Carry(source, job, options, carrier, closing);
}

}  // namespace quillory
