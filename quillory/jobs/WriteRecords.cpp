#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {
namespace {

RecoderOptions RecoderOptionsOf(const OutputOptions& options, Charset from, Charset to) {
    return {from, to, options.normalForm, options.verify};
}

Form FormOfOutput(const OutputOptions& options) {
    const Form form = options.form != kFormUnknown ? options.form : FormOfName(options.output);
    return form != kFormUnknown ? form : kFormMarc;
}

}  // namespace

Charset CharsetOfOutput(const OutputOptions& options) {
    if (!IsAlwaysUtf8(FormOfOutput(options))) return options.charset;
    if (options.charset != kCharsetAuto && options.charset != kCharsetUtf8) {
        throw UsageError("--to-charset " + std::string(CharsetName(options.charset)) +
                         ": MARCXML and JSON are always in UTF-8");
    }
    return kCharsetUtf8;
}

Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare) {
    CheckNotTheSame(options.rejects, options.output, "the records and the rejects");
    const RecoderOptions recoder = RecoderOptionsOf(options, from, CharsetOfOutput(options));
    Output output(options.output);
    const auto writer = MakeWriter(FormOfOutput(options), output, options.oversize);
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
