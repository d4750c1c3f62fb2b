#include <quillory/arguments/ManualCommands.h>
#include <quillory/cli/Commands.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/ProgramLists.h>

#include <utility>

namespace quillory {
namespace {

struct CommandRow {
    const char* name;
    const char* summary;
    void (*declare)(Arguments& command);  // null if it does nothing without one under it
};

constexpr CommandRow kCommands[] = {
    {"convert", "Carry records between forms and character sets", DeclareConvert},
    {"export", "Check records, and write those that may leave", DeclareExport},
    {"show", "Show records as a person reads them", DeclareShow},
    {"check", "Find what stops or mars records before they leave", DeclareCheck},
    {"report", "Put the results of many checks together", DeclareReport},
    {"find", "Find records by what is in them, and show where", DeclareFind},
    {"pick", "Copy records that match, or some of them, as they are", DeclarePick},
    {"count", "Count records, fields, subfields and values", DeclareCount},
    {"repair", "Put the coded control fields of records right", DeclareRepair},
    {"extract", "Take values out of records, as a table", DeclareExtract},
    {"edit", "Change fields and values of records, by one operation or the file of a task",
     DeclareEdit},
    {"split", "Divide records among files, by number, size or a place", DeclareSplit},
    {"sort", "Put records in order, by places, titles or numbers", DeclareSort},
    {"dedupe", "Take out records that are there already", DeclareDedupe},
    {"compare", "Find out what two files of records differ in", DeclareCompare},
    {"merge", "Put fields of one file's records into those of another", DeclareMerge},
    {"describe", "What is known of fields, codes and holdings", DeclareDescribe},
    {"codes", "The code lists of the control fields", DeclareCodes},
    {"new", "Make a record from a workform", DeclareNew},
    {"catalog", "Make the records that files describe, from workforms", DeclareCatalog},
    {"records", "The records that quillory keeps", nullptr},
    {"records add", "Add the records of files to the store", DeclareRecordsAdd},
    {"records list", "List the store: ID, control number, type and level (leader 06-07), title",
     DeclareRecordsList},
    {"records show", "Show records of the store as a person reads them", DeclareRecordsShow},
    {"records edit", "Change fields and values of records of the store", DeclareRecordsEdit},
    {"records history", "Show what was changed in records of the store", DeclareRecordsHistory},
    {"records undo", "Put back what records of the store were before a change", DeclareRecordsUndo},
    {"records delete", "Delete records from the store, for good: undo does not bring them back",
     DeclareRecordsDelete},
    {"records export", "Write records of the store to a file", DeclareRecordsExport},
    {"workforms", "The patterns of new records: list, show, make your own", DeclareWorkforms},
    {"workforms save", "Make a workform of your own from another", DeclareWorkformsSave},
    {"workforms delete", "Delete workforms of your own, all of these or none",
     DeclareWorkformsDelete},
    {"workforms export", "Write workforms of your own to a file", DeclareWorkformsExport},
    {"workforms import", "Add the workforms of an exported file, all of them or none",
     DeclareWorkformsImport},
    {"cards", "Make catalogue cards of records, as PDF or to look at", DeclareCards},
    {"cards add", "Add the cards of records to the queue", DeclareCardsAdd},
    {"cards list", "List the cards that wait in the queue", DeclareCardsList},
    {"cards print", "Print the cards of the queue, which stay there", DeclareCardsPrint},
    {"cards clear", "Delete the queue of cards", DeclareCardsClear},
    {"labels", "Make spine labels of records, as PDF or to look at", DeclareLabels},
    {"labels add", "Add the labels of records to the queue", DeclareLabelsAdd},
    {"labels list", "List the labels that wait in the queue", DeclareLabelsList},
    {"labels print", "Print the labels of the queue, which stay there", DeclareLabelsPrint},
    {"labels clear", "Delete the queue of labels", DeclareLabelsClear},
    {"settings", "List, read and write the settings", DeclareSettings},
};

}  // namespace

void DeclareCommands(Arguments& program) {
    for (const CommandRow& row : kCommands) program.Command(row.name, row.summary, row.declare);
    DeclareManualCommands(program, CheckNotOurs);
    program.List({"Exit status", ExitStatuses()});
    TermsAndMeanings variables = EnvironmentVariables();
    variables.emplace_back("NO_COLOR", "With any value but an empty one, nothing is in colour");
    program.List({"Environment", std::move(variables)});
}

}  // namespace quillory
