#include <quillory/checks/RecordInHand.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {

void RecordInHand::Forget() {
    for (const CheckedField& field : fields_) {
        if (field.number != kNoTag) tags_[field.number].count = 0;
    }
    oddTags_.clear();
    fields_.clear();
    usedSubfields_ = 0;
    isPlain_ = true;
}

std::uint32_t RecordInHand::CountOdd(std::string_view tag) {
    return ++oddTags_[Place::OfField(tag).tag];
}

inline std::uint32_t RecordInHand::Count(std::string_view tag, unsigned number) {
    if (number == kNoTag) return CountOdd(tag);
    FieldsOfTag& fields = tags_[number];
    if (fields.count == 0) fields.first = static_cast<std::uint32_t>(fields_.size());
    return ++fields.count;
}

void RecordInHand::Take(const Record& record) {
    Forget();
    leader_ = record.leader;
    odd_.Begin(record.bytes);
    for (const auto& [tag, content] : record.fields) {
        const unsigned number = TagNumber(tag);
        const std::uint32_t occurrence = Count(tag, number);
        CheckedField& field = fields_.emplace_back();
        field.tag = tag;
        field.content = content;
        field.number = number;
        field.occurrence = occurrence;
        field.firstSubfield = static_cast<std::uint32_t>(usedSubfields_);
        if (number >= kFirstDataTag) {
            TakeSubfields(field);
        } else {
            field.isPlain = *odd_.From(content) >= content.data() + content.size();
            field.lacksText = IsBlank(content);
        }
        isPlain_ = isPlain_ && field.isPlain;
    }
}

inline void RecordInHand::AddSubfield(CheckedField& field, char code, std::string_view text) {
    subfields_[usedSubfields_++] = {code, text};
    if (!field.codes.Insert(code)) field.repeated.Add(code);
    const bool mayBeBlank = text.empty() || text.front() == ' ';
    if (mayBeBlank && IsBlank(text)) field.lacksText = true;
}

// As ForEachSubfield has them: what stands before the first delimiter, and a delimiter without a
// code, are no subfields.
void RecordInHand::TakeSubfields(CheckedField& field) {
    const std::string_view content = field.content;
    const char* const end = content.data() + content.size();
    const std::size_t room = usedSubfields_ + content.size() / 2;
    if (subfields_.size() < room) subfields_.resize(2 * room);
    const char* const* odd = odd_.From(content);
    const auto nextDelimiter = [&odd, &field, end] {
        for (; *odd < end; field.isPlain = false) {
            if (**odd++ == zorby::kDelimiter) return odd[-1];
        }
        return end;
    };
    for (const char* at = nextDelimiter(); at != end;) {
        const char* const next = nextDelimiter();
        if (next - at > 1) AddSubfield(field, at[1], {at + 2, next});
        at = next;
    }
    field.subfields = static_cast<std::uint32_t>(usedSubfields_) - field.firstSubfield;
    field.lacksText = field.lacksText || field.subfields == 0;
}

const CheckedField* RecordInHand::Whole008() const {
    constexpr unsigned kTag = 8;
    constexpr std::size_t kSize = 40;
    const CheckedField* field = First(kTag);
    return field != nullptr && field->content.size() == kSize ? field : nullptr;
}

std::string_view RecordInHand::TextOf(const CheckedField& field, char code) const {
    if (!field.Has(code)) return {};
    return std::ranges::find(SubfieldsOf(field), code, &SubfieldInHand::code)->text;
}

const FieldRule& RecordInHand::RuleFor(const CheckedField& field) const {
    const FieldRule& own = OwnRuleOf(field);
    if (own.role != kRoleLinked) return own;
    const unsigned tag = TagNumber(TextOf(field, '6').substr(0, kTagSize));
    return tag != kNoTag && RuleOf(tag).isKnown ? RuleOf(tag) : own;
}

}  // namespace quillory
