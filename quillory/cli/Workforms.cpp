#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/cli/WorkformsCommands.h>
#include <quillory/jobs/Library.h>
#include <quillory/reports/WorkformScreen.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <utility>

namespace quillory {
namespace {

struct WorkformsOptions {
    std::string name;  // empty for the list
    bool json = false;
    ScreenChoice screen;
};

std::string JsonText(const Document& document, int indent) {
    return document.dump(indent, ' ', false, Document::error_handler_t::replace) + "\n";
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
    if (options.json) {
        for (const auto* rows : {&std::as_const(standard), &users}) {
            for (const Document& row : *rows) text += JsonText(row, -1);
        }
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
    output.Write(options.json
                     ? JsonText(document, 2)
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

void AddWorkforms(CLI::App& program, Run& run) {
    auto options = std::make_shared<WorkformsOptions>();
    CLI::App* command = program.add_subcommand(
        "workforms", "The patterns of new records: list, show, make your own");
    CLI::Option* name = command->add_option(
        "NAME", options->name, "Show this workform, by its name or ID; none lists all");
    CLI::Option* json = command->add_flag("--json", options->json, "JSON, for a program");
    AddWidthOption(*command, options->screen);
    command->require_subcommand(0, 1);
    AddWorkformsSave(*command, run);
    AddWorkformsDelete(*command, run);
    AddWorkformsExport(*command, run);
    AddWorkformsImport(*command, run);
    command->callback([options, command, name, json, &run] {
        const auto called = command->get_subcommands();
        if (called.empty()) {
            run = [options] { return RunWorkforms(*options); };
        } else if (name->count() + json->count() > 0) {
            throw CLI::ParseError("nothing may stand between workforms and " +
                                      called.front()->get_name() +
                                      "; a workform of that name is shown by its ID",
                                  kStatusFailed);
        }
    });
}

}  // namespace quillory
