#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/edits/OperationTable.h>
#include <quillory/edits/RecordEditor.h>
#include <quillory/jobs/WhereOptions.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Which edits a command makes: those of a task's file, or one that is said on the command line.
struct EditChoice {
    std::string task;                                              // a file
    const OperationRow* row = nullptr;                             // null for a task
    std::map<std::string_view, std::optional<std::string>> texts;  // of parameters, by their names
    std::map<std::string_view, bool> flags;
    WhereOptions where;    // of records
    std::string onlyWhen;  // of fields; an operation's alone
};

// The parameters of an operation, or the task's file if there is none, and the conditions.
void DeclareEditChoice(Arguments& command, const OperationRow* row, EditChoice& choice);

// What the edits need of the program while they last.
class EditWork {
public:
    // May be asked for the same task again. Throws FileError and UsageError.
    EditTask TaskOf(const EditChoice& choice);

private:
    const CodeLists& Lists();
    const std::string& TextOf(const std::string& file);

    std::unique_ptr<CodeLists> lists_;
    std::optional<std::string> text_;  // of the task's file, which may be a pipe
};

}  // namespace quillory
