#include <quillory/cli/InputArguments.h>

namespace quillory {
namespace {

const Choices<Charset> kCharsets{{"auto", kCharsetAuto},
                                 {"marc8", kCharsetMarc8},
                                 {"utf8", kCharsetUtf8},
                                 {"latin1", kCharsetLatin1}};

Choices<const Form*> FormChoices() {
    Choices<const Form*> choices;
    for (const Form& form : Forms()) choices.emplace_back(form.name, &form);
    return choices;
}

}  // namespace

void DeclareMessages(Arguments& command, ReporterOptions& messages) {
    command.Flag("-q,--quiet", messages.quiet, "No progress bar and no summary");
    command.Flag("-v,--verbose", messages.all, "Say every message, not the first of a kind");
}

void DeclareForm(Arguments& command, const std::string& name, const Form*& form,
                 const std::string& text) {
    command.Choice(name, form, FormChoices(), text);
}

void DeclareCharset(Arguments& command, const std::string& name, Charset& charset,
                    const std::string& text) {
    command.Choice(name, charset, kCharsets, text);
}

void DeclareFiles(Arguments& command, InputOptions& options, ReporterOptions& messages) {
    command.Positional("FILE", options.files, "Files of records; none, or -, is standard input");
    DeclareForm(command, "--from", options.form,
                "Form of the files; by default recognised by content and name");
    DeclareCharset(
        command, "--from-charset", options.charset,
        "Character set of the files; by default recognised by leader byte 09 and the bytes");
    command.Flag("--lenient", options.lenient,
                 "Read damaged records from their terminators where that is certain");
    DeclareMessages(command, messages);
}

void DeclareInput(Arguments& command, InputOptions& options, ReporterOptions& messages) {
    DeclareFiles(command, options, messages);
    DeclareWhere(command, options.where);
}

void DeclareWhere(Arguments& command, WhereOptions& where) {
    command
        .Option("--where", where.expression,
                "Only records that match, such as '245a contains \"rivers\" and not has 856u'; all "
                "others are left out, of what is written too")
        .Shown("EXPRESSION");
    command
        .Option(
            "--where-text", where.condition,
            "Only records for which this condition holds, in the text form in which the library "
            "keeps conditions")
        .Shown("TEXT");
    command.Flag("--exact", where.exact, "Case and diacritics count in what --where compares");
}

}  // namespace quillory
