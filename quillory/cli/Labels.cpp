#include <quillory/cli/Commands.h>
#include <quillory/cli/PrintCommands.h>

namespace quillory {

void DeclareLabels(Arguments& command) {
    PrintCommand& options = command.Runs(RunPrint);
    options.records.choice.kind = PrintQueue::kLabels;
    DeclareRecords(command, options);
    DeclareDestination(command, options.destination);
    DeclareSheets(command, options.records.choice);
}

void DeclareLabelsAdd(Arguments& command) {
    PrintCommand& options = command.Runs(RunQueue);
    options.records.choice.kind = PrintQueue::kLabels;
    DeclareRecords(command, options);
}

void DeclareLabelsList(Arguments& command) {
    DeclareQueueList(command, PrintQueue::kLabels);
}

void DeclareLabelsPrint(Arguments& command) {
    DeclareQueuePrint(command, PrintQueue::kLabels);
}

void DeclareLabelsClear(Arguments& command) {
    DeclareQueueClear(command, PrintQueue::kLabels);
}

}  // namespace quillory
