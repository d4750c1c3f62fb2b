#pragma once

#include <quillory/coded/CodeStatus.h>
#include <quillory/edits/OperationTable.h>
#include <quillory/edits/RecordEditor.h>

#include <map>
#include <string>
#include <string_view>
#include <tests/quillory/Records.h>

namespace quillory {

using ParameterTexts = std::map<std::string, std::string>;

inline EditTools TestTools() {
    return {[]() -> const CodeLists& {
                static const CodeLists lists{CodeStatus(CODES_FILE)};
                return lists;
            },
            HoldingsSystemNamed};
}

inline EditStep StepOf(std::string_view operation, const ParameterTexts& texts) {
    const OperationRow* row = OperationNamed(operation);
    if (row == nullptr) throw UsageError(std::string(operation) + " is no operation");
    Parameters parameters;
    for (const auto& [name, text] : texts) parameters.Set(name, text);
    EditStep step;
    step.operation = row->name;
    step.work = MakeOperation(*row, parameters, TestTools());
    return step;
}

// A task of one step.
inline EditTask TaskOf(std::string_view operation, const ParameterTexts& texts) {
    EditTask task;
    task.steps.push_back(StepOf(operation, texts));
    return task;
}

// The record's fields after a step, as FieldsOf, or why the step was refused.
inline std::string Edited(std::string_view operation, const ParameterTexts& texts,
                          std::string_view fields) {
    TestRecord test(Divided(fields), '$');
    RecordEditor editor(TaskOf(operation, texts), {{}, true, false});
    Losses losses;
    const Edit& edit = editor.Carry(test.record, losses);
    return edit.refused ? "refused: " + FaultText(*edit.refused) : FieldsOf(test.record);
}

}  // namespace quillory
