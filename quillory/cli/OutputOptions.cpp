#include <quillory/cli/Carrier.h>
#include <quillory/cli/Choice.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/OutputOptions.h>

#include <stdexcept>

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
        throw std::invalid_argument("--to-charset " + std::string(CharsetName(options.charset)) +
                                    ": MARCXML and JSON are always in UTF-8");
    }
    return kCharsetUtf8;
}

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
    command.add_option("-o,--output", options.output,
                       "Where the records go; standard output if not given");
    AddFormOption(command, "--to", options.form,
                  "Form of the output; told by its name, or marc, if not given");
    AddCharsetOption(
        command, "--to-charset", options.charset,
        "Character set of the output; as it is, or utf8 for marcxml and jsonl, if not given");
    AddChoice<NormalForm>(command, "--normalize", options.normalForm,
                          {{"nfc", kNormalFormC}, {"nfd", kNormalFormD}},
                          "Normal form of UTF-8; nfc if not given");
    command.add_option("--rejects", options.rejects,
                       "Where the bytes of everything go that is not written");
    AddChoice<Oversize>(
        command, "--oversize", options.oversize,
        {{"refuse", kOversizeRefuse}, {"cut", kOversizeCut}},
        "A field of over 9,999 bytes, or a record of over 99,999: refuse the record, or "
        "cut it; refuse if not given");
    command.add_flag("--each-loss", options.eachLoss,
                     "Report the characters not carried for each record, too");
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
