#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Record.h>
#include <quillory/repair/CodedFields.h>
#include <quillory/repair/ElementRepair.h>
#include <quillory/repair/KnownRepairs.h>
#include <quillory/repair/LibraryRepair.h>
#include <quillory/repair/Repair.h>

#include <optional>
#include <vector>

namespace quillory {

struct RepairOptions {
    // Gives the library's own result: its defaults for all that its code lists lack.
    bool strict = false;
    RepairSelection classes = {};  // without `strict`
};

// Puts the coded control fields of bibliographic records right: Leader, 006, 007 and 008. The
// standard workforms must be in force if the library is to have its way. docs/repair.md describes
// the steps.
//
// The lengths and addresses of the file (Leader 00-04 and 12-16) stay as they are, and so does byte
// 09, if it names a character set. All other fields stay, and so does the order of all fields.
// Records of another format (authority, holdings, classification, community information) stay as a
// whole.
class RecordRepairer {
public:
    // Keeps the reference.
    RecordRepairer(const CodeLists& lists, RepairOptions options)
        : elements_(lists), options_(std::move(options)) {}

    // Repairs the record and says what became of it. The record's views and the result hold until
    // the next call; the views also need the bytes that they looked into before. A second repair of
    // the same record replaces nothing.
    const std::vector<Repair>& PutRight(Record& record);

private:
    zorby::CFType MaterialOf(std::string_view leader) const;
    void FitLengths();
    void FitLength(CodedField& field);
    std::optional<FaultCode> WhyLeft(const CodedField& field);
    void RepairElements(CodedField& field, const Record& record);
    void Mend(const Repair& repair, CodedField& field);
    bool JudgeRun(const ElementRun& run, const CodedField& field, const Record& record,
                  std::vector<Repair>& repairs);
    std::optional<Judgement> Judge(const FieldElement& at, const CodedField& field,
                                   const Record& record);
    void RunLibrary(const Record& record);
    bool RunPass(const Record& record);
    void RestoreLeader(const Record& record);
    void AddReplaced(const CodedField& field);
    void Add(Repair repair);

    ElementRepair elements_;
    KnownRepairs known_;
    RepairOptions options_;
    CodedFields fields_;
    LibraryRepair library_;
    zorby::CFType material_ = {};  // by which the record's 008 is read
    std::vector<Repair> repairs_;
};

}  // namespace quillory
