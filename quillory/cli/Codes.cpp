#include <quillory/cli/Commands.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/CodeRows.h>

namespace quillory {
namespace {

struct CodesOptions {
    std::vector<std::string> places;
    bool isJson = false;
    std::string output = "-";
};

Status RunCodes(const CodesOptions& options) {
    CheckNotOurs(options.output);
    std::vector<NamedElement> elements;
    for (const std::string& name : options.places) {
        const NamedPlace place = FindPlace(name);
        if (place.fault) throw UsageError(place.fault);
        elements.insert(elements.end(), place.elements.begin(), place.elements.end());
    }
    const CodeRows rows = ListCodes(elements, LoadCodeLists());
    WriteOutput(options.output, options.isJson ? JsonText(rows) : ToText(rows));
    return rows.empty() ? kStatusFindings : kStatusWell;
}

}  // namespace

void DeclareCodes(Arguments& command) {
    CodesOptions& options = command.Runs(RunCodes);
    command.Positional("LIST", options.places,
                       "Only those of elements such as 008/35, 007s/03 or \"part 310\"");
    command.Choice("--format", options.isJson, {{"tsv", false}, {"json", true}},
                   "tsv, or json for a program");
    command.Option("-o,--output", options.output, "The file to write; standard output if not given")
        .File();
}

}  // namespace quillory
