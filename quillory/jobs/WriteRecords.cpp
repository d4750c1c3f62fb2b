#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {
namespace {

RecoderOptions RecoderOptionsOf(const OutputOptions& options, Charset from, Charset to) {
    return {from, to, options.normalForm, options.verify};
}

const Form& FormOfOutput(const OutputOptions& options) {
    const Form* form = options.form;
    if (form == nullptr) form = FormOfFileName(options.output);
    return form != nullptr ? *form : Forms().front();
}

}  // namespace

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

Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare) {
    CheckNotTheSame(options.rejects, options.output, "the records and the rejects");
    const RecoderOptions recoder = RecoderOptionsOf(options, from, CharsetOfOutput(options));
    Output output(options.output);
    const auto writer = FormOfOutput(options).makeWriter(output, options.oversize);
    Carrier carrier({recoder, options.eachLoss, options.rejects, prepare}, *writer, reporter);
    try {
        carrier.Raise(source([&carrier](Item& item) {
            carrier.Take(item);
            return true;
        }));
        writer->Finish();
        output.Finish();
        carrier.Finish();
    } catch (const ClosedPipe&) {
        carrier.Finish();
        return carrier.Result();
    }
    carrier.Summarize();
    return carrier.Result();
}

}  // namespace quillory
