#pragma once

#include <quillory/checks/FindingSink.h>
#include <quillory/checks/RecordFacts.h>
#include <quillory/checks/RecordInHand.h>

#include <cstddef>
#include <optional>
#include <span>

namespace quillory {

// A field, with the record to which it belongs.
struct FieldInHand {
    const RecordInHand& record;
    const CheckedField& field;
    const RecordFacts& facts;  // what came before the field
    bool allowsLocal;          // fields and subfields that the format leaves to libraries

    std::span<const SubfieldInHand> Subfields() const { return record.SubfieldsOf(field); }
};

// One check of a field.
struct FieldCheck {
    bool isForAllFormats;           // of MARC 21; else for bibliographic records alone
    std::optional<FieldRole> role;  // of the fields that it looks at; all if there is none
    std::size_t leastSize;          // bytes of the smallest field in which it finds something
    std::span<const zorby::E_ERROR_CODE> codes;  // that it finds
    void (*check)(const FieldInHand& field, FindingSink& findings);
};

// In the order in which findings on a field are listed.
std::span<const FieldCheck> FieldChecks();

}  // namespace quillory
