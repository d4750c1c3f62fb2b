#include <quillory/cli/Commands.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/Library.h>
#include <quillory/reports/CodedDocument.h>

namespace quillory {
namespace {

struct CodesOptions {
    std::vector<std::string> places;
    bool isJson = false;
    std::string output = "-";
};

constexpr const char* kColumns[] = {"field",       "form", "positions", "part",  "list",  "code",
                                    "second_code", "text", "status",    "since", "until", "use"};

std::string Cell(const Document& value) {
    return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string Tsv(const Document& rows) {
    std::string text;
    for (const char* column : kColumns) text += (text.empty() ? "" : "\t") + std::string(column);
    text += "\n";
    for (const Document& row : rows) {
        std::string line;
        for (const char* column : kColumns) {
            if (column != kColumns[0]) line += "\t";
            line += Cell(row.at(column));
        }
        text += line + "\n";
    }
    return text;
}

Status RunCodes(const CodesOptions& options) {
    std::vector<NamedElement> elements;
    for (const std::string& name : options.places) {
        const NamedPlace place = FindPlace(name);
        if (place.fault) throw UsageError(place.fault);
        elements.insert(elements.end(), place.elements.begin(), place.elements.end());
    }
    const Document rows = ListCodes(elements, LoadCodeLists());
    Output output(options.output);
    output.Write(options.isJson ? rows.dump(2) + "\n" : Tsv(rows));
    output.Finish();
    return rows.empty() ? kStatusFindings : kStatusWell;
}

}  // namespace

void DeclareCodes(Arguments& command) {
    CodesOptions& options = command.Runs(RunCodes);
    command.Positional("LIST", options.places,
                       "Only those of elements such as 008/35, 007s/03 or \"part 310\"");
    command.Choice("--format", options.isJson, {{"tsv", false}, {"json", true}},
                   "tsv, or json for a program");
    command.Option("-o,--output", options.output,
                   "The file to write; standard output if not given");
}

}  // namespace quillory
