#pragma once

#include <quillory/edits/OperationTable.h>
#include <quillory/edits/RecordEditor.h>

#include <functional>
#include <string>
#include <string_view>

namespace quillory {

// What tasks are made with.
struct TaskTools {
    EditTools edits;
    // A condition from its text. Throws UsageError.
    std::function<RecordCondition(const std::string& text)> condition;
};

// Reads a task from TOML: `where` for the task as a whole, if it is given, and an [[edit]] for
// each step, in which
//   do = "replace"      is the name of the operation,
//   where = ...         says which records, and only-when = ... which fields,
//   and all other keys are the parameters of the operation.
// Throws FileError with the file's name, the line and the column.
EditTask ReadTask(std::string_view toml, const std::string& name, const TaskTools& tools);

}  // namespace quillory
