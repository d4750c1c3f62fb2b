#include <quillory/cli/Choice.h>
#include <quillory/cli/InputArguments.h>

namespace quillory {
namespace {

const Choices<Form> kForms{{"marc", kFormMarc},
                           {"mrk", kFormMrk},
                           {"microlif", kFormMicrolif},
                           {"marcxml", kFormMarcXml},
                           {"jsonl", kFormJsonLines}};

const Choices<Charset> kCharsets{{"auto", kCharsetAuto},
                                 {"marc8", kCharsetMarc8},
                                 {"utf8", kCharsetUtf8},
                                 {"latin1", kCharsetLatin1}};

}  // namespace

void AddMessageOptions(CLI::App& command, ReporterOptions& messages) {
    command.add_flag("-q,--quiet", messages.quiet, "No progress bar and no summary");
    command.add_flag("-v,--verbose", messages.all, "Say every message, not the first of a kind");
}

void AddFormOption(CLI::App& command, const std::string& name, Form& form,
                   const std::string& text) {
    AddChoice(command, name, form, kForms, text);
}

void AddCharsetOption(CLI::App& command, const std::string& name, Charset& charset,
                      const std::string& text) {
    AddChoice(command, name, charset, kCharsets, text);
}

void AddInputOptions(CLI::App& command, InputOptions& options, ReporterOptions& messages) {
    command.add_option("FILE", options.files, "Files of records; none, or -, is standard input");
    AddFormOption(command, "--from", options.form,
                  "Form of the files; told by content and name if not given");
    AddCharsetOption(
        command, "--from-charset", options.charset,
        "Character set of the files; told by leader byte 09 and the bytes if not given");
    command.add_flag("--lenient", options.lenient,
                     "Read damaged records from their terminators where that is certain");
    AddMessageOptions(command, messages);
}

}  // namespace quillory
