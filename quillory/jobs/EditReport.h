#pragma once

#include <quillory/edits/RecordEditor.h>
#include <quillory/exchange/Record.h>

#include <cstdint>

namespace quillory {

// What a job edited in all its records.
struct EditTotals {
    std::uint64_t records = 0;
    std::uint64_t edited = 0;
    std::uint64_t changes = 0;
    std::uint64_t refused = 0;  // records

    // Counts one more record, with what became of it.
    void Count(const Edit& edit) {
        ++records;
        if (!edit.changes.empty()) ++edited;
        changes += edit.changes.size();
        if (edit.refused) ++refused;
    }
    void Add(const EditTotals& others) {
        records += others.records;
        edited += others.edited;
        changes += others.changes;
        refused += others.refused;
    }
};

// Is given what edits do, record by record.
class EditReport {
public:
    virtual ~EditReport() = default;

    // Whether records are to come with their lines before and after.
    virtual bool WantsLines() const { return false; }
    // Comes for every record that was changed.
    virtual void TakeRecord(const Item& item, const Edit& edit) = 0;
    // Comes before the records take their name: what was told so far must be safe. Throws
    // FileError.
    virtual void Complete() {}
    // Comes once, after the last record. A dry run wrote no records.
    virtual void Finish(const EditTotals& totals, bool isDryRun) = 0;
};

}  // namespace quillory
