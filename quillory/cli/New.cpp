#include <quillory/cli/Carrier.h>
#include <quillory/cli/Commands.h>
#include <quillory/cli/DescriptionFiles.h>
#include <quillory/cli/NewRecords.h>
#include <quillory/cli/OutputOptions.h>
#include <quillory/cli/Prompter.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <unistd.h>

namespace quillory {
namespace {

struct NewOptions {
    NewRecordOptions record;
    std::string from;
    bool noInput = false;
    bool all = false;
    bool quiet = false;
    OutputOptions output;
};

std::string PlaceText(LineColumn where) {
    if (where.line == 0) return {};
    return ": line " + std::to_string(where.line) + ", column " + std::to_string(where.column);
}

Description DescriptionFor(const NewOptions& options) {
    Description description;
    if (!options.from.empty()) {
        const std::string text = ReadDescriptionFile(options.from);
        DescriptionReader reader(text);
        Description further;
        reader.Next(description);
        if (reader.Next(further)) {
            throw FileError(options.from +
                            ": describes several records; quillory catalog makes them all");
        }
        if (!description.error.empty()) {
            throw FileError(options.from + PlaceText(description.where) + ": " + description.error);
        }
    }
    if (!options.record.workform.empty()) description.workform = options.record.workform;
    AddCommandLine(ReadSets(options.record.sets), description);
    if (description.workform.empty()) {
        throw FileError("which workform? Name it by --workform; quillory workforms lists them");
    }
    return description;
}

bool IsPersonThere() {
    return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

// The bytes of ISO 2709 are nothing for a terminal.
OutputOptions OutputFor(const NewOptions& options) {
    OutputOptions output = options.output;
    const bool isScreen = output.output == "-" && isatty(STDOUT_FILENO) == 1;
    if (isScreen && output.form == kFormUnknown) output.form = kFormMrk;
    return output;
}

// What can't be done is told before a person is asked for the rest.
Status MakeRecord(const NewOptions& options) {
    const Description description = DescriptionFor(options);
    Reporter reporter(options.quiet, true);
    NewRecords newRecords(reporter);
    RecordMaker& maker = newRecords.Maker();
    Draft draft = maker.Begin(description);
    maker.Finish(draft, description);
    reporter.BeginFile("new record");
    const ItemSource single = [&](const auto& take) {
        if (!options.noInput && IsPersonThere()) {
            Prompter(std::cin, std::cerr, options.all)
                .Fill(maker.PatternFor(description.workform), draft);
        }
        Item item;
        item.number = 1;
        item.record = maker.Finish(draft, description);
        take(item);
        return kStatusWell;
    };
    return WriteItems(single, kCharsetUtf8, OutputFor(options), reporter);
}

Status RunNew(const NewOptions& options) {
    if (!options.from.empty()) {
        CheckNotAnInput({options.from}, options.output.output);
        CheckNotAnInput({options.from}, options.output.rejects);
    }
    try {
        return MakeRecord(options);
    } catch (const EntryError& error) {
        const bool isOfFile = error.Where().line != 0;
        throw FileError((isOfFile ? options.from + PlaceText(error.Where()) + ": " : "") +
                        error.what());
    }
}

}  // namespace

void AddNew(CLI::App& program, Run& run) {
    auto options = std::make_shared<NewOptions>();
    CLI::App* command = program.add_subcommand("new", "Make a record from a workform");
    AddNewRecordOptions(*command, options->record,
                        "The workform, by its name or ID; that of --from if not given");
    command->add_option("--from", options->from, "A TOML file that describes the record");
    command->add_flag("--no-input", options->noInput, "Ask nothing, even on a terminal");
    command->add_flag("--all", options->all, "Ask for every subfield of the workform");
    AddOutputOptions(*command, options->output);
    command->add_flag("-q,--quiet", options->quiet, "No summary");
    command->callback([options, &run] { run = [options] { return RunNew(*options); }; });
}

}  // namespace quillory
