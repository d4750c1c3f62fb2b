#include <quillory/cli/Commands.h>
#include <quillory/cli/PrintCommands.h>

namespace quillory {
namespace {

void DeclareMaking(Arguments& command, PrintCommand& options) {
    options.records.choice.kind = PrintQueue::kCards;
    DeclareRecords(command, options);
    command.Choice("--make", options.records.choice.uses,
                   {{"shelf-list", kUseShelfList},
                    {"main", kUseMainEntry},
                    {"titles", kUseTitle},
                    {"names", kUseName},
                    {"series", kUseSeries},
                    {"subjects", kUseSubject}},
                   "Only cards of this kind; may be given several times; by default the set that "
                   "the settings say");
}

}  // namespace

void DeclareCards(Arguments& command) {
    PrintCommand& options = command.Runs(RunPrint);
    DeclareMaking(command, options);
    DeclareDestination(command, options.destination);
    DeclareSheets(command, options.records.choice);
}

void DeclareCardsAdd(Arguments& command) {
    DeclareMaking(command, command.Runs(RunQueue));
}

void DeclareCardsList(Arguments& command) {
    DeclareQueueList(command, PrintQueue::kCards);
}

void DeclareCardsPrint(Arguments& command) {
    DeclareQueuePrint(command, PrintQueue::kCards);
}

void DeclareCardsClear(Arguments& command) {
    DeclareQueueClear(command, PrintQueue::kCards);
}

}  // namespace quillory
