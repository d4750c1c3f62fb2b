#pragma once

#include <quillory/checks/FieldRules.h>
#include <quillory/exchange/Record.h>
#include <quillory/places/Place.h>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillory {

struct SubfieldInHand {
    char code;
    std::string_view text;
};

// A field of a record that is being checked.
struct CheckedField {
    std::string_view tag;
    std::string_view content;
    unsigned number;  // of the tag, or kNoTag
    std::uint32_t occurrence;
    std::size_t firstSubfield;
    std::size_t subfields;

    bool IsData() const { return number != kNoTag && number >= kFirstDataTag; }
    Place GetPlace() const { return Place::OfField(tag, occurrence); }
    // 1 or 2; NUL where the field is too short to have it.
    char Indicator(int which) const {
        const auto at = static_cast<std::size_t>(which - 1);
        return at < content.size() ? content[at] : '\0';
    }
};

// A record taken apart once for all rules. One object serves record after record and keeps its
// buffers.
class RecordInHand {
public:
    // Keeps the reference.
    explicit RecordInHand(const FieldRules& rules) : rules_(rules), occurrences_(kTags) {}

    // The record's bytes have to last as long as they are asked for.
    void Take(const Record& record);

    std::string_view Leader() const { return leader_; }
    // 'a' for Leader/06 where it is position 6; NUL beyond the end.
    char LeaderByte(std::size_t position) const {
        return position < leader_.size() ? leader_[position] : '\0';
    }
    std::span<const CheckedField> Fields() const { return fields_; }
    std::span<const SubfieldInHand> SubfieldsOf(const CheckedField& field) const {
        return std::span(subfields_).subspan(field.firstSubfield, field.subfields);
    }
    // The first field of a tag; null if there is none.
    const CheckedField* First(unsigned tag) const;
    bool Has(unsigned tag) const { return First(tag) != nullptr; }
    // The first 008, if it has all its 40 positions; null otherwise.
    const CheckedField* Whole008() const;
    // The first subfield of a code, of a field; empty if there is none.
    std::string_view TextOf(const CheckedField& field, char code) const;
    const FieldRule& OwnRuleOf(const CheckedField& field) const { return rules_.Of(field.number); }
    // What the field may have: for an 880 the rules of the field that it is linked to.
    const FieldRule& RuleFor(const CheckedField& field) const;

private:
    const FieldRules& rules_;
    std::string_view leader_;
    std::vector<CheckedField> fields_;
    std::vector<SubfieldInHand> subfields_;
    std::vector<std::uint32_t> occurrences_;  // by tag
    std::vector<unsigned> touched_;           // tags with occurrences
};

}  // namespace quillory
