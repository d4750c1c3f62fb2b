#include <quillory/checks/RecordInHand.h>
#include <quillory/text/Ascii.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>

namespace quillory {
namespace {

// What a subfield says of its field.
void NoteSubfield(const SubfieldInHand& subfield, CheckedField& field) {
    if (field.codes.Has(subfield.code)) field.repeated.Add(subfield.code);
    field.codes.Add(subfield.code);
    if (IsBlank(subfield.text)) field.lacksText = true;
}

}  // namespace

void RecordInHand::Forget() {
    for (const CheckedField& field : fields_) {
        if (field.number != kNoTag) tags_[field.number].count = 0;
    }
    oddTags_.clear();
    fields_.clear();
    subfields_.clear();
}

void RecordInHand::Take(const Record& record) {
    Forget();
    leader_ = record.leader;
    for (const auto& [tag, content] : record.fields) {
        const unsigned number = TagNumber(tag);
        const std::uint32_t occurrence = Count(tag, number);
        CheckedField& field = fields_.emplace_back();
        field.tag = tag;
        field.content = content;
        field.number = number;
        field.occurrence = occurrence;
        field.firstSubfield = subfields_.size();
        if (number >= kFirstDataTag) {
            TakeSubfields(field);
        } else {
            const char* const end = content.data() + content.size();
            field.isPlain = zorby::PlainRunLength(content.data(), end) == content.size();
            field.lacksText = IsBlank(content);
        }
    }
}

std::uint32_t RecordInHand::Count(std::string_view tag, unsigned number) {
    if (number == kNoTag) return ++oddTags_[Place::OfField(tag).tag];
    FieldsOfTag& fields = tags_[number];
    if (fields.count == 0) fields.first = static_cast<std::uint32_t>(fields_.size());
    return ++fields.count;
}

// As ForEachSubfield has them: what stands before the first delimiter, and a delimiter without a
// code, are no subfields.
void RecordInHand::TakeSubfields(CheckedField& field) {
    const char* const end = field.content.data() + field.content.size();
    const char* delimiter = nullptr;  // of the subfield in hand
    for (const char* at = field.content.data();; ++at) {
        at += zorby::PlainRunLength(at, end);
        if (at != end && *at != zorby::kDelimiter) {
            field.isPlain = false;
            const std::string_view rest(at, static_cast<std::size_t>(end - at));
            at += std::min(rest.find(zorby::kDelimiter), rest.size());
        }
        if (delimiter != nullptr && at - delimiter > 1) {
            const auto size = static_cast<std::size_t>(at - delimiter) - 2;
            subfields_.push_back({delimiter[1], {delimiter + 2, size}});
            NoteSubfield(subfields_.back(), field);
        }
        if (at == end) break;
        delimiter = at;
    }
    field.subfields = subfields_.size() - field.firstSubfield;
    if (field.subfields == 0) field.lacksText = true;
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
