#pragma once

#include <quillory/places/Place.h>
#include <quillory/rules/Rule.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillory {

// A number that no other record of a run should have.
struct NumberMet {
    RuleId rule;
    char kind;  // as SeenNumbers has it
    std::string_view number;
    Place place;
    std::size_t at;          // where a remark on it comes among the others
    Severity severity;       // of such a remark
    std::uint64_t hash = 0;  // SeenNumbers::HashOf of kind and number, or IsbnKey
};

// The rules about a number that another record has, too.
inline bool IsAboutNumbers(RuleId rule) {
    return rule == RuleId::ControlNumberRepeated || rule == RuleId::NumberRepeated;
}

}  // namespace quillory
