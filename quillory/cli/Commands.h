#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/Status.h>

namespace quillory {

// All commands of the program, in the order of help, and what holds for all of them.
void DeclareCommands(Arguments& program);

// The arguments of each command and what it runs. A command leaves FileError, UsageError and
// ClosedPipe to its caller.
void DeclareCards(Arguments& command);
void DeclareCardsAdd(Arguments& command);
void DeclareCardsClear(Arguments& command);
void DeclareCardsList(Arguments& command);
void DeclareCardsPrint(Arguments& command);
void DeclareCatalog(Arguments& command);
void DeclareCheck(Arguments& command);
void DeclareCodes(Arguments& command);
void DeclareCompare(Arguments& command);
void DeclareConvert(Arguments& command);
void DeclareCount(Arguments& command);
void DeclareDedupe(Arguments& command);
void DeclareDescribe(Arguments& command);
void DeclareEdit(Arguments& command);
void DeclareExport(Arguments& command);
void DeclareExtract(Arguments& command);
void DeclareFind(Arguments& command);
void DeclareLabels(Arguments& command);
void DeclareLabelsAdd(Arguments& command);
void DeclareLabelsClear(Arguments& command);
void DeclareLabelsList(Arguments& command);
void DeclareLabelsPrint(Arguments& command);
void DeclareMerge(Arguments& command);
void DeclareNew(Arguments& command);
void DeclarePick(Arguments& command);
void DeclareRecordsAdd(Arguments& command);
void DeclareRecordsDelete(Arguments& command);
void DeclareRecordsEdit(Arguments& command);
void DeclareRecordsExport(Arguments& command);
void DeclareRecordsHistory(Arguments& command);
void DeclareRecordsList(Arguments& command);
void DeclareRecordsShow(Arguments& command);
void DeclareRecordsUndo(Arguments& command);
void DeclareRepair(Arguments& command);
void DeclareReport(Arguments& command);
void DeclareSettings(Arguments& command);
void DeclareShow(Arguments& command);
void DeclareSort(Arguments& command);
void DeclareSplit(Arguments& command);
void DeclareWorkforms(Arguments& command);
void DeclareWorkformsDelete(Arguments& command);
void DeclareWorkformsExport(Arguments& command);
void DeclareWorkformsImport(Arguments& command);
void DeclareWorkformsSave(Arguments& command);

}  // namespace quillory
