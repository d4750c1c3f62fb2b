#pragma once

#include <quillory/checks/RecordFacts.h>
#include <zorby/checking/ErrorCode.h>

#include <span>

namespace quillory {

// Where a record breaks a rule about it as a whole.
enum class BrokenAt {
    Nowhere,  // the record lacks the field or subfield that the rule names
    Field,    // in the first field of the tag that the rule names, if the record has one
};

// A rule about a bibliographic record as a whole.
struct RecordRule {
    zorby::E_ERROR_CODE code;
    const char* tag;
    char subfield;  // NUL for the field
    BrokenAt where;
    bool (*isBroken)(const RecordFacts& facts);
};

// In the order in which findings are listed.
std::span<const RecordRule> RecordRules();

}  // namespace quillory
