#include <quillory/cli/Carrier.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/OutputOptions.h>

#include <CLI/CLI.hpp>

#include <map>

namespace quillory {
namespace {

RecoderOptions RecoderOptionsOf(const OutputOptions& options, Charset from) {
    RecoderOptions recoder{from, options.charset, {}};
    if (options.normalForm == "nfc") recoder.form = kNormalFormC;
    if (options.normalForm == "nfd") recoder.form = kNormalFormD;
    return recoder;
}

Form FormOfOutput(const OutputOptions& options) {
    const Form form = options.form != kFormUnknown ? options.form : FormOfName(options.output);
    return form != kFormUnknown ? form : kFormMarc;
}

}  // namespace

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
    command.add_option("-o,--output", options.output,
                       "Where the records go; standard output if not given");
    AddFormOption(command, "--to", options.form,
                  "Form of the output; told by its name, or marc, if not given");
    AddCharsetOption(command, "--to-charset", options.charset,
                     "Character set of the output; as it is if not given");
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
                  Reporter& reporter) {
    CheckNotTheSame(options.rejects, options.output);
    Output output(options.output);
    const auto writer = MakeWriter(FormOfOutput(options), output, options.oversize);
    Carrier carrier({RecoderOptionsOf(options, from), options.eachLoss, options.rejects}, *writer,
                    reporter);
    try {
        carrier.Raise(source([&carrier](Item& item) {
            carrier.Take(item);
            return true;
        }));
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
