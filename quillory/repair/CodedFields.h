#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/repair/FieldElements.h>
#include <quillory/repair/Repair.h>
#include <zorby/elements/CFType.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A coded control field under repair.
struct CodedField {
    std::size_t index = 0;                // among the fields of the record; kLeader for the Leader
    Place place;                          // the field with its occurrence, or the Leader
    zorby::CFType form = {};              // CFLdr, CF008Standard, or a form of 006 or 007
    const FieldLayout* layout = nullptr;  // of this form
    std::string_view given;               // its bytes as the record has them
    bool isTouched = false;               // whether the repair has bytes of its own
    std::string bytes;                    // these
    std::string fitted;                   // as they were before the library's repair
    std::string beforePass;               // before the pass of that repair which is under way

    static constexpr std::size_t kLeader = static_cast<std::size_t>(-1);

    // The bytes as the repair has them so far.
    std::string_view Bytes() const { return isTouched ? std::string_view(bytes) : given; }
    // The same, to be changed.
    std::string& Touch() {
        if (!isTouched) bytes = given;
        isTouched = true;
        return bytes;
    }
    bool IsChanged() const { return isTouched && bytes != given; }
};

// The Leader, 006, 007 and 008 of a record. One object serves record after record and keeps its
// buffers.
class CodedFields {
public:
    // Takes the Leader, and each 006, 007 and 008 that can be read. A 006 or 007 of an unknown
    // first byte, and all 008 but one, are left. The material is the record's.
    void Collect(const Record& record, zorby::CFType material);

    std::span<CodedField> Fields() { return {fields_.data(), count_}; }
    CodedField& Leader() { return fields_.front(); }
    // Null if there is none.
    CodedField* Field008();

    // Takes a field out of the others; it is left as it is, for this reason.
    void Leave(CodedField& field, FaultCode reason);
    // One repair of kind Left for each field that was left.
    const std::vector<Repair>& LeftOnes() const { return left_; }

    // Puts the bytes of all fields into the record. If no field has another length, and the record
    // has bytes of its own, it gets a copy of these with the changes in it. Otherwise it has no
    // bytes, only a leader and fields, and has to be put together when it is written. The record's
    // views into these fields hold until the next Collect.
    void PutInto(Record& record);

private:
    void Add(std::size_t index, const Place& place, zorby::CFType form, std::string_view given);
    void Add008(std::size_t index, const Place& place, std::size_t main, std::string_view given);
    void Leave(const Place& place, std::string_view given, FaultCode reason);
    bool FitInto(const Record& record);
    void PutIntoBytes(Record& record);
    void PutIntoFields(Record& record);

    zorby::CFType material_ = {};
    std::vector<CodedField> fields_;  // the first `count_` of them count
    std::size_t count_ = 0;
    std::vector<Repair> left_;
    std::string recordBytes_;
};

}  // namespace quillory
