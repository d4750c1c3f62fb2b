#pragma once

#include <quillory/edits/Operation.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Whether something is so of a record.
using RecordCondition = std::function<bool(const Record& record)>;

// One step of a task, with its conditions; an empty one always holds.
struct EditStep {
    std::string_view operation;  // its name
    std::unique_ptr<Operation> work;
    RecordCondition where;     // of the record as it is before the step
    RecordCondition onlyWhen;  // of each field, as if the record had no other
};

struct EditTask {
    RecordCondition where;  // of the record before the first step
    std::vector<EditStep> steps;
};

struct EditorOptions {
    EditedRecord::Options record;
    bool isIso2709 = false;  // the record has to stay within the lengths of ISO 2709
    bool keepsLines = false;
};

// What became of one record. Holds until the next one.
struct Edit {
    std::vector<Change> changes;   // none if the record was not edited
    std::optional<Fault> refused;  // why it was not, though a step would have changed it
    // The record before and after, as lines in UTF-8; only if something changed, and if asked for.
    std::vector<std::string> before;
    std::vector<std::string> after;
};

// Carries out a task in record after record.
class RecordEditor {
public:
    RecordEditor(EditTask task, EditorOptions options);

    // Edits the record, or leaves it as it was if no edit is due or if it could not be read again.
    // What the record's character set can't carry of new text is counted in `losses`. The
    // record's views hold until the next call, as long as what they viewed before.
    const Edit& Carry(Record& record, Losses& losses);

private:
    bool Holds(const RecordCondition& condition);
    void Run(const EditStep& step);
    std::optional<Fault> PutInto(Record& record, Losses& losses);
    void KeepLines(const Record& given);

    EditTask task_;
    EditorOptions options_;
    EditedRecord record_;
    Edit edit_;
};

// The leader and the fields of a record as lines of the line form, in UTF-8.
std::vector<std::string> LinesInUtf8(const Record& record, EditedRecord::Options options = {});

// Why the record that an edited one has become could not be read again; nothing if it can. Only
// what edits have touched is looked at.
std::optional<Fault> FaultOfEdit(EditedRecord& edited, const Record& record, bool isIso2709);

}  // namespace quillory
