#pragma once

#include <quillory/exchange/Record.h>
#include <zorby/elements/CFType.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A coded control field under repair.
struct CodedField {
    std::size_t index = 0;       // in the record; kLeader for the Leader
    std::size_t occurrence = 1;  // of its tag
    zorby::CFType form = {};     // CFLdr, CF008Standard, or a form of 006 or 007
    std::string_view given;      // as the record has it
    std::string before;          // the same at the length of the format
    std::string last;            // before the pass of the repair that is under way
    std::string after;

    static constexpr std::size_t kLeader = static_cast<std::size_t>(-1);
    std::string_view Tag() const;
    bool IsChanged() const { return after != given; }
};

// The Leader, 006, 007 and 008 of a record. One object serves record after record.
class CodedFields {
public:
    // Takes the fields of which the form is known. Others, and a second 008, are named as left.
    void Collect(const Record& record);

    struct Left {
        CodedField field;
        std::string reason;
    };
    std::span<CodedField> Fields() { return {fields_.data(), count_}; }
    const std::vector<Left>& LeftOnes() const { return left_; }
    CodedField& Leader() { return fields_.front(); }
    // Null if there is none.
    CodedField* Field008();
    void Leave008(std::string reason);

    // Puts what changed into the record. Its own bytes stay around that, if no length changed.
    void PutInto(Record& record);

private:
    void Add(std::size_t index, std::size_t occurrence, zorby::CFType form, std::string_view given);
    bool PutInPlace(Record& record);

    std::vector<CodedField> fields_;  // those behind the count only keep their buffers
    std::size_t count_ = 0;
    std::vector<Left> left_;
    std::string bytes_;
};

}  // namespace quillory
