#pragma once

#include <quillory/checks/FieldRules.h>
#include <quillory/checks/FindingSink.h>
#include <quillory/checks/RecordFacts.h>

#include <span>

namespace quillory {

// A field of a record that is being checked.
struct FieldInHand {
    const zorby::CommFormatField& field;
    Place place;   // the field, with its occurrence
    unsigned tag;  // its number, or kNoTag
    const FieldRules& rules;
    const RecordFacts& facts;  // what came before the field
    bool allowsLocal;          // fields and subfields that the format leaves to libraries
};

// One check of a field.
struct FieldCheck {
    bool isForAllFormats;  // of MARC 21; else for bibliographic records alone
    void (*check)(const FieldInHand& field, FindingSink& findings);
};

// In the order in which findings on a field are listed.
std::span<const FieldCheck> FieldChecks();

}  // namespace quillory
