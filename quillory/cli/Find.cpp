#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/queries/ConditionText.h>
#include <quillory/reports/FoundRecord.h>

namespace quillory {
namespace {

struct FindCommand {
    FindOptions find;
    ReporterOptions messages;
    bool isJson = false;
    bool printsCondition = false;
};

constexpr const char* kFindDetails =
    "A line for each hit: number of the record, 001, place and text. docs/where.md explains\n"
    "--where; some expressions:\n"
    "    245a contains \"rivers\"             has 650 and not has 856u\n"
    "    008/35-37 = fre                    264c >= 1990 and 264c < 2000\n"
    "    650a like \"jazz*france\"            count(650) > 3 or material = map\n"
    "Status: 0 if a record was found, 1 if none was, or with damage; 2 for wrong usage, or a file\n"
    "that can't be read.";

// What --where says, as the library keeps it.
Status PrintCondition(const WhereOptions& where) {
    const auto text = ConditionTextOf(where.expression, where.exact);
    if (!text) {
        throw UsageError(
            "--print-where-text: conditions of the library are one or two tests of one field, of "
            "has, contains and like");
    }
    WriteOutput("-", *text + "\n");
    return kStatusWell;
}

Status RunFind(const FindCommand& command) {
    if (command.printsCondition) return PrintCondition(command.find.input.where);
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    Output output("-");
    const bool namesFiles = command.find.input.files.size() > 1;
    FoundRecords report({command.isJson, command.find.onlyCount, ColourOfOutput(), namesFiles},
                        output, reporter);
    return FindRecords(command.find, report, reporter);
}

}  // namespace

void DeclareFind(Arguments& command) {
    FindCommand& options = command.Runs(RunFind);
    command.Footer(kFindDetails);
    DeclareInput(command, options.find.input, options.messages);
    command.Flag("--count", options.find.onlyCount, "Only say how many records match");
    command.Flag("--print-where-text", options.printsCondition,
                 "Only print what --where says in the form of --where-text");
    command.Choice("--format", options.isJson, {{"text", false}, {"jsonl", true}},
                   "text, or jsonl for a program: an object for each record");
}

}  // namespace quillory
