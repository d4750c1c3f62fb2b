#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Record.h>
#include <quillory/repair/AllowedValues.h>
#include <quillory/repair/CodedFields.h>
#include <quillory/repair/LibraryRepair.h>
#include <quillory/repair/Repair.h>

#include <vector>

namespace quillory {

struct RepairOptions {
    // Leaves the library's result as it is. Otherwise values and single codes that the format
    // allows are put back.
    bool strict = false;
};

// Puts the coded control fields of bibliographic records right: Leader, 006, 007 and 008, by the
// code lists and the standard workforms of the library. The standard workforms must be in force.
// docs/repair.md describes the steps.
//
// The lengths and addresses of the file (Leader 00-04 and 12-16) stay as they are, and so does byte
// 09, if it names a character set. All other fields stay, and so does the order of all fields.
// Records of another format (authority, holdings, classification, community information) stay as a
// whole.
class RecordRepairer {
public:
    // Keeps the reference.
    RecordRepairer(const CodeLists& lists, RepairOptions options)
        : allowed_(lists), options_(options) {}

    // Repairs the record and says what became of it. The record's views and the result hold until
    // the next call; the views also need the bytes that they looked into before. A second repair of
    // the same record replaces nothing.
    const std::vector<Repair>& PutRight(Record& record);

private:
    void FitLengths();
    bool RunPass(const Record& record);
    void RestoreLeader(const Record& record);
    void RestoreAllowedValues(CodedField& field);
    void AddReplaced(const CodedField& field);
    void Add(const std::vector<Repair>& repairs);

    AllowedValues allowed_;
    RepairOptions options_;
    CodedFields fields_;
    LibraryRepair library_;
    zorby::CFType material_ = {};  // by which the record's 008 is read
    std::vector<Repair> kept_;     // by the pass that is under way
    std::vector<Repair> repairs_;
};

}  // namespace quillory
