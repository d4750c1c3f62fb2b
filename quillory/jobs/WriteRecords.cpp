#include <quillory/faults/FaultCode.h>
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

RecoderOptions RecoderOptionsOf(const OutputOptions& options, Charset from, Charset to) {
    const bool verify = options.verify || to == kCharsetUtf8;
    return {from, to, options.normalForm, verify, options.replaceInvalid};
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
    const RecoderOptions recoder = RecoderOptionsOf(options, from, CharsetOfOutput(options));
    Carrier carrier(
        {recoder, options.eachLoss, options.rejects, prepare, options.isDryRun, options.force},
        writer, reporter);
    try {
        carrier.Raise(source([&carrier](Item& item) {
            carrier.Take(item);
            return true;
        }));
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

Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare) {
    CheckNotTheSame(options.rejects, options.output, "the records and the rejects");
    CharsetOfOutput(options);  // what can't be is said before anything is made
    Output output(options.isDryRun ? "/dev/null" : options.output, OutputRole::kMain,
                  options.force);
    const auto writer = FormOfOutput(options).makeWriter(output, options.writing);
    const Closing closing{[&] {
                              writer->Finish();
                              output.Complete();
                          },
                          [&output] { output.Finish(); }};
    return CarryItems(source, from, options, *writer, closing, reporter, prepare);
}

}  // namespace quillory
