#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>

namespace quillory {
namespace {

// "marcxml and jsonl".
std::string FormsInUtf8() {
    std::string names;
    for (const Form& form : Forms()) {
        if (!form.isAlwaysUtf8) continue;
        if (!names.empty()) names += " and ";
        names += form.name;
    }
    return names;
}

}  // namespace

void DeclareOutput(Arguments& command, OutputOptions& options) {
    command
        .Option("-o,--output", options.output, "Where the records go; standard output if not given")
        .File();
    DeclareWriting(command, options);
    command.Flag("--force", options.force, "Replace a file that is write-protected, too");
}

void DeclareWriting(Arguments& command, OutputOptions& options) {
    DeclareForm(
        command, "--to", options.form,
        "Form of the output; by default that of its name, marc for a name without an ending");
    DeclareCharset(
        command, "--to-charset", options.charset,
        "Character set of the output; as it is, or utf8 for " + FormsInUtf8() + ", if not given");
    command.Choice("--normalize", options.normalForm,
                   {{"nfc", kNormalFormC}, {"nfd", kNormalFormD}},
                   "Normal form of all UTF-8 that is written; if not given, text that comes in "
                   "UTF-8 stays as it is, and other text is written in nfc");
    command
        .Option("--rejects", options.rejects,
                "Where the bytes of everything go that is not written")
        .File();
    command.Choice(
        "--oversize", options.writing.oversize,
        {{"refuse", kOversizeRefuse}, {"cut", kOversizeCut}, {"historic", kOversizeHistoric}},
        "A field of over 9,999 bytes, or a record of over 99,999: refuse the record, cut it to "
        "what fits, or write it as was done of old, with 9,999 for any longer field; refuse if not "
        "given");
    command.Flag("--mnemonics", options.writing.mnemonics,
                 "In mrk, write characters beyond ASCII as names, such as {acute}e");
    command.Flag("--each-loss", options.eachLoss,
                 "Report the characters not carried for each record, too");
}

void DeclareReportFile(Arguments& command, std::string& output) {
    command.Option("-o,--output", output, "File to write; none, or -, is standard output").File();
}

}  // namespace quillory
