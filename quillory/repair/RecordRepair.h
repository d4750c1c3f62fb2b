#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Record.h>
#include <quillory/repair/CodedFields.h>
#include <quillory/repair/CodedValue.h>
#include <quillory/repair/LibraryRepair.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

enum class RepairKind : std::int32_t {
    Replaced,  // an element has another value now
    Kept,      // a value that the library would replace, but the format allows
    Length,    // a field has the length of its format now
    Left,      // a field, or the whole record, that is as it was, since it can't be repaired
};

// What became of one element, or of one field.
struct Repair {
    RepairKind kind = RepairKind::Replaced;
    std::string_view field;            // "leader", "006", "007", "008"; empty for the whole record
    std::size_t occurrence = 1;        // of the tag in the record
    const Element* element = nullptr;  // null if it is about a field or the record
    std::string before;                // bytes as they were
    std::string after;   // bytes as they are; of a value that was kept, what the library has
    std::string reason;  // of a length, or of what was left

    // "008/35-37", "leader/06"; that of a field is its tag.
    std::string Place() const;
};

struct RepairOptions {
    // Leaves the library's result as it is. Otherwise a value is put back that the format allows,
    // or once did; of an element of several codes, each code counts.
    bool strict = false;
};

// Puts the coded control fields of bibliographic records right: Leader, 006, 007 and 008, by the
// library's lists and the standard workforms, which must be in force. Leader bytes 00-04 and 12-16
// are never touched, nor is byte 09 if it names a character set. All other bytes of a record stay,
// and so does the order of its fields. Records of another format (authority, holdings,
// classification, community information) stay as they are.
class RecordRepairer {
public:
    // Keeps the reference.
    RecordRepairer(const CodeLists& lists, RepairOptions options)
        : allowed_(lists), options_(options) {}

    // Repairs the record. Its views hold until the next call, as long as what they viewed. Another
    // repair of the same record replaces nothing.
    const std::vector<Repair>& Take(Record& record);

private:
    void FitLengths();
    bool IsShifted(const CodedField& field008);
    // Whether anything has another value now.
    bool RunPass(const Record& record);
    void RestoreLeader(const Record& record);
    void Protect(CodedField& field);
    void TellReplaced();
    void TellElement(RepairKind kind, const CodedField& field, const Element& element,
                     std::string_view before, std::string_view after);
    void TellField(RepairKind kind, const CodedField& field, const std::string& reason);

    AllowedValues allowed_;
    RepairOptions options_;
    zorby::CFType form008_ = {};
    CodedFields fields_;
    LibraryRepair library_;
    std::vector<Repair> repairs_;
};

}  // namespace quillory
