#include <quillory/cli/Carrier.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/OutputOptions.h>

#include <CLI/CLI.hpp>

#include <map>
#include <stdexcept>

namespace quillory {
namespace {

RecoderOptions RecoderOptionsOf(const OutputOptions& options, Charset from, Charset to) {
    RecoderOptions recoder{from, to, {}};
    if (options.normalForm == "nfc") recoder.form = kNormalFormC;
    if (options.normalForm == "nfd") recoder.form = kNormalFormD;
    return recoder;
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
    command.add_option("--normalize", options.normalForm, "Normal form of UTF-8; nfc if not given")
        ->check(CLI::IsMember({"nfc", "nfd"}))
        ->option_text("nfc|nfd");
    command.add_option("--rejects", options.rejects,
                       "Where the bytes of everything go that is not written");
    const std::map<std::string, Oversize> policies{{"refuse", kOversizeRefuse},
                                                   {"cut", kOversizeCut}};
    command
        .add_option(
            "--oversize", options.oversize,
            "A field of over 9,999 bytes, or a record of over 99,999: refuse the record, or "
            "cut it; refuse if not given")
        ->transform(CLI::CheckedTransformer(policies).description(""))
        ->option_text("refuse|cut");
    command.add_flag("--each-loss", options.eachLoss,
                     "Report the characters not carried for each record, too");
}

Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare) {
    CheckNotTheSame(options.rejects, options.output);
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
