#pragma once

#include <quillory/checks/FieldRules.h>
#include <quillory/checks/OddBytes.h>
#include <quillory/exchange/Record.h>
#include <quillory/places/Place.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
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
    unsigned number = kNoTag;         // of the tag
    const FieldRule* rule = nullptr;  // of the tag; never null in a record in hand
    std::uint32_t occurrence = 0;
    std::uint32_t firstSubfield = 0;
    std::uint32_t subfields = 0;
    CodeSet codes;           // of its subfields
    CodeSet repeated;        // those of them that stand there more than once
    bool isPlain = true;     // printable ASCII and delimiters
    bool lacksText = false;  // in one of its subfields, or as a whole

    // Makes it another field, without subfields.
    void Begin(std::string_view newTag, std::string_view newContent, unsigned newNumber,
               const FieldRule& newRule, std::uint32_t newOccurrence) {
        tag = newTag;
        content = newContent;
        number = newNumber;
        rule = &newRule;
        occurrence = newOccurrence;
        firstSubfield = subfields = 0;
        codes = repeated = {};
        isPlain = true;
        lacksText = false;
    }
    bool IsData() const { return number != kNoTag && number >= kFirstDataTag; }
    // As CodeSet::MayHave: for letters from a to z and digits.
    bool Has(char code) const { return codes.MayHave(code); }
    Place GetPlace() const { return Place::OfField(tag, occurrence); }
    // 1 or 2; NUL where the field is too short to have it.
    char Indicator(int which) const {
        const auto at = static_cast<std::size_t>(which - 1);
        return at < content.size() ? content[at] : '\0';
    }
};

// A record taken apart once for all checks. One object serves record after record and keeps its
// buffers.
class RecordInHand {
public:
    // Keeps the reference.
    explicit RecordInHand(const FieldRules& rules) : rules_(&rules), tags_(kTags) {}

    // The record's bytes have to last as long as they are asked for.
    void Take(const Record& record);

    std::string_view Leader() const { return leader_; }
    // 'a' for Leader/06 where it is position 6; NUL beyond the end.
    char LeaderByte(std::size_t position) const {
        return position < leader_.size() ? leader_[position] : '\0';
    }
    std::span<const CheckedField> Fields() const { return std::span(fields_).first(usedFields_); }
    // Whether all its fields are.
    bool IsPlain() const { return isPlain_; }
    std::span<const SubfieldInHand> SubfieldsOf(const CheckedField& field) const {
        return std::span(subfields_).subspan(field.firstSubfield, field.subfields);
    }
    // The first field of a tag; null if there is none.
    const CheckedField* First(unsigned tag) const {
        const FieldsOfTag& fields = tags_[tag];
        return fields.count == 0 ? nullptr : &fields_[fields.first];
    }
    bool Has(unsigned tag) const { return tags_[tag].count != 0; }
    // Calls `take(field)` for each field of these tags, in the order of the record.
    template <std::size_t kCount, class Take>
    void ForEachOf(const unsigned (&tags)[kCount], Take take) const {
        std::uint32_t left = 0;
        std::size_t at = usedFields_;
        for (const unsigned tag : tags) {
            if (!Has(tag)) continue;
            left += tags_[tag].count;
            at = std::min<std::size_t>(at, tags_[tag].first);
        }
        for (; left != 0; ++at) {
            if (std::ranges::find(tags, fields_[at].number) == std::end(tags)) continue;
            take(fields_[at]);
            --left;
        }
    }
    // The first 008, if it has all its 40 positions; null otherwise.
    const CheckedField* Whole008() const;
    // The first subfield of a code; empty if the field has none.
    std::string_view TextOf(const CheckedField& field, char code) const;
    const FieldRule& RuleOf(unsigned tag) const { return rules_->Of(tag); }
    // What the field may have: for an 880 the rules of the field that it is linked to.
    const FieldRule& RuleFor(const CheckedField& field) const;

private:
    struct FieldsOfTag {
        std::uint32_t count = 0;
        std::uint32_t first = 0;  // its index
    };

    void Forget();
    // Which of the fields of its tag it is, from 1.
    std::uint32_t Count(std::string_view tag, unsigned number);
    std::uint32_t CountOdd(std::string_view tag);
    void MakeRoom(const Record& record);

    const FieldRules* rules_;
    std::string_view leader_;
    bool isPlain_ = true;
    OddBytes odd_;
    std::vector<CheckedField> fields_;  // with room for more
    std::size_t usedFields_ = 0;
    std::vector<SubfieldInHand> subfields_;  // with room for more
    std::size_t usedSubfields_ = 0;
    std::vector<FieldsOfTag> tags_;                                // by number
    std::map<std::array<char, kTagSize>, std::uint32_t> oddTags_;  // occurrences of other tags
};

}  // namespace quillory
