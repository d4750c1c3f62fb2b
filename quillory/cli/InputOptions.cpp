#include <quillory/cli/Choice.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/Progress.h>

#include <memory>

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

Form FormOf(const InputOptions& options, Input& input) {
    if (options.form != kFormUnknown) return options.form;
    const Form content = FormOfContent(input);
    return content != kFormUnknown ? content : FormOfName(input.Name());
}

}  // namespace

void AddFormOption(CLI::App& command, const std::string& name, Form& form,
                   const std::string& text) {
    AddChoice(command, name, form, kForms, text);
}

void AddCharsetOption(CLI::App& command, const std::string& name, Charset& charset,
                      const std::string& text) {
    AddChoice(command, name, charset, kCharsets, text);
}

void AddInputOptions(CLI::App& command, InputOptions& options) {
    command.add_option("FILE", options.files, "Files of records; none, or -, is standard input");
    AddFormOption(command, "--from", options.form,
                  "Form of the files; told by content and name if not given");
    AddCharsetOption(
        command, "--from-charset", options.charset,
        "Character set of the files; told by leader byte 09 and the bytes if not given");
    command.add_flag("--lenient", options.lenient,
                     "Read damaged records from their terminators where that is certain");
    command.add_flag("-q,--quiet", options.quiet, "No progress bar and no summary");
    command.add_flag("-v,--verbose", options.verbose, "Say every message, not the first of a kind");
}

Status ReadFiles(const InputOptions& options, Reporter& reporter,
                 const std::function<bool(Item& item)>& take) {
    const std::vector<std::string> standardInput{"-"};
    const auto& files = options.files.empty() ? standardInput : options.files;
    std::vector<std::unique_ptr<Input>> inputs;
    inputs.reserve(files.size());
    for (const std::string& file : files) inputs.push_back(std::make_unique<Input>(file));

    Status status = kStatusWell;
    Progress progress(options.quiet);
    bool goOn = true;
    for (auto& input : inputs) {
        reporter.BeginFile(input->Name());
        if (input->Peek(1).empty()) {
            reporter.Say(input->Name() + ": an empty file");
            status = kStatusFindings;
            continue;
        }
        const auto reader = MakeReader(FormOf(options, *input), *input, options.lenient);
        Item item;
        while (goOn && reader->Next(item)) {
            if (item.kind == kItemFrame) continue;
            goOn = take(item);
            progress.Step(input->BytesRead(), input->FileSize());
        }
        reporter.EndFile();
        input.reset();
    }
    return status;
}

}  // namespace quillory
