#include <quillory/cli/InputArguments.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <thread>

namespace quillory {

namespace {

// The character sets that help names.
std::vector<std::string> UsualCharsets() {
    return {"auto", "marc8", "utf8", "latin1"};
}

}  // namespace

// A character set by its name.
template <>
struct ArgumentReader<Charset> {
    static std::optional<NumberRange> Range() { return std::nullopt; }
    static std::string Shown() {
        std::string shown;
        for (const std::string& name : UsualCharsets()) shown += name + "|";
        return shown + "NAME";
    }
    static Charset Read(const std::string& text, const ArgumentDefinition&) {
        if (const auto charset = CharsetNamed(text)) return *charset;
        throw UsageError({FaultCode::kNoCharset,
                          {},
                          text,
                          "auto, marc8, utf8, latin1, and those of the C library that have ASCII, "
                          "such as cp1252 and iso-8859-2"});
    }
};

namespace {

Choices<const Form*> FormChoices() {
    Choices<const Form*> choices;
    for (const Form& form : Forms()) {
        choices.emplace_back(form.name, &form);
        if (!form.alias.empty()) choices.emplace_back(form.alias, &form);
    }
    return choices;
}

// How files are read.
void DeclareReading(Arguments& command, InputOptions& options, ReporterOptions& messages) {
    DeclareForm(command, "--from", options.form,
                "Form of the files; by default recognised by content and name");
    DeclareCharset(
        command, "--from-charset", options.charset,
        "Character set of the files; by default recognised by leader byte 09 and the bytes");
    command.Flag("--lenient", options.lenient,
                 "Read damaged records as far as that is certain; what is left out is named");
    DeclareMessages(command, messages);
}

}  // namespace

void DeclareMessages(Arguments& command, ReporterOptions& messages) {
    command.Flag("-q,--quiet", messages.quiet, "No progress bar and no summary");
    command.Flag("-v,--verbose", messages.all, "Say every message, not only the first of a kind");
}

void DeclareForm(Arguments& command, const std::string& name, const Form*& form,
                 const std::string& text) {
    command.Choice(name, form, FormChoices(), text);
}

std::vector<std::string> UsualMatchPlaces() {
    return {"001", "010", "020", "022", "024", "035", "title"};
}

void DeclareCharset(Arguments& command, const std::string& name, Charset& charset,
                    const std::string& text) {
    command.Option(name, charset, text).Offers(UsualCharsets());
}

void DeclareFiles(Arguments& command, InputOptions& options, ReporterOptions& messages) {
    command.Positional("FILE", options.files, "Files of records; none, or -, is standard input")
        .File();
    DeclareReading(command, options, messages);
}

void DeclareInputOf(Arguments& command, const std::string& files, InputOptions& options,
                    ReporterOptions& messages) {
    command.Positional("FILE", options.files, files).File().Required();
    DeclareReading(command, options, messages);
    DeclareWhere(command, options.where);
}

void DeclareInput(Arguments& command, InputOptions& options, ReporterOptions& messages) {
    DeclareFiles(command, options, messages);
    DeclareWhere(command, options.where);
}

void DeclareJobs(Arguments& command, CrewOptions& crew) {
    crew.jobs = std::max(1U, std::thread::hardware_concurrency());
    command
        .Option("--jobs", crew.jobs,
                "Threads that work on records, which makes no difference to what comes out; by "
                "default as many as there are cores")
        .Range(1, 256);
}

void DeclareWhere(Arguments& command, WhereOptions& where) {
    command
        .Option("--where", where.expression,
                "Only records that match, such as '245a contains \"rivers\" and not has 856u'; all "
                "others are left out, of what is written too")
        .Shown("EXPRESSION")
        .NeverEmpty();
    command
        .Option(
            "--where-text", where.condition,
            "Only records for which this condition holds, in the text form in which the library "
            "keeps conditions")
        .Shown("TEXT")
        .NeverEmpty();
    command.Flag("--exact", where.exact, "Case and diacritics count in what --where compares");
}

}  // namespace quillory
