#include <quillory/cli/Commands.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/Library.h>
#include <quillory/reports/WorkformDocument.h>

namespace quillory {
namespace {

struct WorkformsOptions {
    std::string name;  // empty for the list
    bool isJson = false;
    ScreenChoice screen;
};

// The rows of all that can be read. Of the others it is reported why they can't.
WorkformRows RowsOf(const std::vector<WorkformEntry>& entries, const WorkformCatalog& catalog,
                    const Reporter& reporter, Status& status) {
    WorkformRows rows;
    for (const WorkformEntry& entry : entries) {
        try {
            rows.push_back(RowOf(entry, *catalog.Get(entry.id)));
        } catch (const FileError& damage) {
            reporter.Say(damage.what());
            status = kStatusFindings;
        }
    }
    return rows;
}

Status List(const WorkformsOptions& options, const WorkformCatalog& catalog,
            const Reporter& reporter) {
    Status status = kStatusWell;
    WorkformRows standard = RowsOf(catalog.Standard(), catalog, reporter, status);
    const WorkformRows users = RowsOf(catalog.Users(), catalog, reporter, status);
    SortByMaterial(standard);
    std::string text;
    if (options.isJson) {
        standard.insert(standard.end(), users.begin(), users.end());
        text = JsonText(standard);
    } else {
        text = ToText(standard, false);
        if (!users.empty()) text += "\n" + ToText(users, true);
    }
    WriteOutput("-", text);
    return status;
}

Status ShowWorkform(const WorkformsOptions& options, const WorkformCatalog& catalog) {
    const WorkformEntry entry = catalog.Find(options.name);
    const zorby::TemplateHolder workform = catalog.Get(entry.id);
    const CodeLists lists = LoadCodeLists();
    const WorkformDocument document = DescribeWorkform(entry, *workform, Decoder(lists));
    const ShowOptions shown = ShowOptionsOf(options.screen);
    WriteOutput(
        "-", options.isJson ? JsonText(document) : ToText(document, {shown.width, shown.colour}));
    return kStatusWell;
}

Status RunWorkforms(const WorkformsOptions& options) {
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
    TerminalPort terminal;
    const Reporter reporter(terminal, {false, true});
    const WorkformCatalog catalog(reporter);
    return options.name.empty() ? List(options, catalog, reporter) : ShowWorkform(options, catalog);
}

}  // namespace

void DeclareWorkforms(Arguments& command) {
    WorkformsOptions& options = command.Runs(RunWorkforms);
    command
        .Positional("NAME", options.name, "Show this workform, by its name or ID; none lists all")
        .OffersNow(OfferedWorkforms);
    command.Choice("--format", options.isJson, {{"text", false}, {"json", true}},
                   "text, or json for a program");
    DeclareWidth(command, options.screen);
}

}  // namespace quillory
