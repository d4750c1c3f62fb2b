#include <quillory/exchange/Subfields.h>
#include <quillory/rules/RecordInHand.h>

#include <algorithm>

namespace quillory {

void RecordInHand::Take(const Record& record) {
    for (const unsigned tag : touched_) occurrences_[tag] = 0;
    touched_.clear();
    fields_.clear();
    subfields_.clear();
    leader_ = record.leader;
    for (const zorby::CommFormatField& field : record.fields) {
        const unsigned number = TagNumber(field.tag);
        std::uint32_t occurrence = 1;
        if (number == kNoTag) {
            occurrence += static_cast<std::uint32_t>(
                std::ranges::count(fields_, field.tag, &CheckedField::tag));
        } else {
            if (occurrences_[number] == 0) touched_.push_back(number);
            occurrence = ++occurrences_[number];
        }
        const std::size_t first = subfields_.size();
        if (number >= kFirstDataTag) {
            ForEachSubfield(field.content, [this](char code, std::string_view text) {
                subfields_.push_back({code, text});
            });
        }
        fields_.push_back(
            {field.tag, field.content, number, occurrence, first, subfields_.size() - first});
    }
}

const CheckedField* RecordInHand::First(unsigned tag) const {
    if (occurrences_[tag] == 0) return nullptr;
    return &*std::ranges::find(fields_, tag, &CheckedField::number);
}

const CheckedField* RecordInHand::Whole008() const {
    constexpr unsigned kTag = 8;
    constexpr std::size_t kSize = 40;
    const CheckedField* field = First(kTag);
    return field != nullptr && field->content.size() == kSize ? field : nullptr;
}

std::string_view RecordInHand::TextOf(const CheckedField& field, char code) const {
    const auto subfields = SubfieldsOf(field);
    const auto found = std::ranges::find(subfields, code, &SubfieldInHand::code);
    return found == subfields.end() ? std::string_view() : found->text;
}

const FieldRule& RecordInHand::RuleFor(const CheckedField& field) const {
    const FieldRule& own = rules_.Of(field.number);
    if (own.role != kRoleLinked) return own;
    const unsigned tag = TagNumber(TextOf(field, '6').substr(0, kTagSize));
    return tag != kNoTag && rules_.Of(tag).isKnown ? rules_.Of(tag) : own;
}

}  // namespace quillory
