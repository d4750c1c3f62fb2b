#pragma once

#include <quillory/checks/RecordInHand.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace quillory {

// Which of $a, $b and $c a field has, with text.
struct FirstSubfields {
    bool a = false;
    bool b = false;
    bool c = false;
};

// What a bibliographic record has shown, as far as its fields have been looked at.
struct RecordFacts {
    std::string_view leader;
    std::string_view field008;              // the first; empty if there is none
    std::span<const SubfieldInHand> title;  // the first 245 whose $a has text
    std::uint32_t titleOccurrence = 0;      // of that 245
    unsigned mainEntry = 0;                 // tag of the first main entry
    FirstSubfields publication;             // of all 260 and 264
    FirstSubfields extent;                  // of all 300
    bool hasNote = false;
    bool hasSubject = false;
    bool hasHoldings = false;

    // Takes in a field of the record.
    void Take(const RecordInHand& record, const CheckedField& field) {
        const FieldRule& rule = *field.rule;
        if (field.number == kTag008 && field.occurrence == 1) field008 = field.content;
        hasHoldings = hasHoldings || rule.isHoldings;
        if (rule.role != kRoleOther) TakeInRole(rule.role, record, field);
    }

private:
    void TakeInRole(FieldRole role, const RecordInHand& record, const CheckedField& field);
};

// Whether a text has more than white space.
bool HasText(std::string_view text);

}  // namespace quillory
