#include <quillory/cli/Commands.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/Library.h>
#include <quillory/reports/WorkformScreen.h>

#include <algorithm>

namespace quillory {
namespace {

struct WorkformsOptions {
    std::string name;  // empty for the list
    bool isJson = false;
    ScreenChoice screen;
};

std::string JsonText(const Document& document) {
    return document.dump(2, ' ', false, Document::error_handler_t::replace) + "\n";
}

// The rows of all that can be read; of the others is said why not.
std::vector<Document> RowsOf(const std::vector<WorkformEntry>& entries,
                             const WorkformCatalog& catalog, const Reporter& reporter,
                             Status& status) {
    std::vector<Document> rows;
    for (const WorkformEntry& entry : entries) {
        try {
            rows.push_back(WorkformRow(entry, *catalog.Get(entry.id)));
        } catch (const FileError& damage) {
            reporter.Say(damage.what());
            status = kStatusFindings;
        }
    }
    return rows;
}

// Keeps the order of the materials' first workforms.
void SortByMaterial(std::vector<Document>& rows) {
    std::vector<Document> materials;
    materials.reserve(rows.size());
    for (const Document& row : rows) materials.push_back(row.at("material_type"));
    const auto rank = [&materials](const Document& row) {
        return std::find(materials.begin(), materials.end(), row.at("material_type"));
    };
    std::stable_sort(rows.begin(), rows.end(),
                     [&rank](const Document& a, const Document& b) { return rank(a) < rank(b); });
}

Status List(const WorkformsOptions& options, const WorkformCatalog& catalog,
            const Reporter& reporter) {
    Status status = kStatusWell;
    std::vector<Document> standard = RowsOf(catalog.Standard(), catalog, reporter, status);
    const std::vector<Document> users = RowsOf(catalog.Users(), catalog, reporter, status);
    SortByMaterial(standard);
    std::string text;
    if (options.isJson) {
        Document all = standard;
        for (const Document& row : users) all.push_back(row);
        text = JsonText(all);
    } else {
        text = WorkformRowsText(standard, false);
        if (!users.empty()) text += "\n" + WorkformRowsText(users, true);
    }
    Output output("-");
    output.Write(text);
    output.Finish();
    return status;
}

Status Show(const WorkformsOptions& options, const WorkformCatalog& catalog) {
    const WorkformEntry entry = catalog.Find(options.name);
    const zorby::TemplateHolder workform = catalog.Get(entry.id);
    const CodeLists lists = LoadCodeLists();
    const Decoder decoder(lists);
    const Document document = DescribeWorkform(entry, *workform, decoder);
    const ShowOptions shown = ShowOptionsOf(options.screen);
    const ScreenOptions screen{shown.width, shown.colour, {}, {}};
    Output output("-");
    output.Write(options.isJson
                     ? JsonText(document)
                     : WorkformScreenText(document, ControlFieldsOf(*workform, decoder), screen));
    output.Finish();
    return kStatusWell;
}

Status RunWorkforms(const WorkformsOptions& options) {
    LoadSettings();
    if (!LoadDictionaries({}) || !LoadWorkforms()) return kStatusFailed;
    TerminalPort terminal;
    const Reporter reporter(terminal, {false, true});
    const WorkformCatalog catalog(reporter);
    return options.name.empty() ? List(options, catalog, reporter) : Show(options, catalog);
}

}  // namespace

void DeclareWorkforms(Arguments& command) {
    WorkformsOptions& options = command.Runs(RunWorkforms);
    command.Positional("NAME", options.name,
                       "Show this workform, by its name or ID; none lists all");
    command.Choice("--format", options.isJson, {{"text", false}, {"json", true}},
                   "text, or json for a program");
    DeclareWidth(command, options.screen);
}

}  // namespace quillory
