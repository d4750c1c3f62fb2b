#pragma once

#include <quillory/repair/CodedFields.h>
#include <quillory/repair/MaterialCodes.h>

#include <vector>

namespace quillory {

// A material beside the main one: an 006, an 007, or both.
struct AdditionalFields {
    CodedField* field006 = nullptr;
    CodedField* field007 = nullptr;
};

// The coded fields of a record, sorted by the materials that they describe. The Leader and the 008
// describe the main material, together with the first 007 that belongs to it. Each 006 describes an
// additional material, together with the first 007 that belongs to it and is left; so does each 007
// that is left after that. The 007 of a microform describes a reproduction and stands alone.
class MaterialFields {
public:
    // The Leader must be that of a bibliographic record. Keeps pointers into `fields`.
    void Sort(CodedFields& fields);

    // Of the main material. Null if the record has none.
    CodedField& Leader() const { return *leader_; }
    CodedField* Field008() const { return field008_; }
    CodedField* Field007() const { return field007_; }

    const std::vector<CodedField*>& Microforms() const { return microforms_; }
    const std::vector<AdditionalFields>& Additional() const { return additional_; }

private:
    void Sort007(CodedField& field007, const MaterialCodes& main);
    void SortAdditional007(CodedField& field007);

    CodedField* leader_ = nullptr;
    CodedField* field008_ = nullptr;
    CodedField* field007_ = nullptr;
    std::vector<CodedField*> microforms_;
    std::vector<AdditionalFields> additional_;
    std::size_t with006_ = 0;  // the first of these; the others are a 007 alone
};

}  // namespace quillory
