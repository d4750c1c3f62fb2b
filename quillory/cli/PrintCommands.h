#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/cards/PrintQueue.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/jobs/PrintRecords.h>

#include <optional>
#include <string>

namespace quillory {

// Where cards or labels go, as the command line says it.
struct PrintDestination {
    PageOptions pages;
    std::optional<bool> isPdf;  // or text; by the name of the output if not given
};

struct PrintCommand {
    PrintRecordsOptions records;
    PrintDestination destination;
    ReporterOptions messages;
};

// What the commands `cards` and `labels` have in common, and the commands under them.
void DeclareRecords(Arguments& command, PrintCommand& options);
void DeclareDestination(Arguments& command, PrintDestination& destination);
// What is said of sheets.
void DeclareSheets(Arguments& command, PrintChoice& choice);

Status RunPrint(const PrintCommand& command);
Status RunQueue(const PrintCommand& command);
Status RunPrintQueue(const PrintCommand& command);

void DeclareQueueList(Arguments& command, PrintQueue::Kind kind);
void DeclareQueuePrint(Arguments& command, PrintQueue::Kind kind);
void DeclareQueueClear(Arguments& command, PrintQueue::Kind kind);

}  // namespace quillory
