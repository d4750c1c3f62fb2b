#include <quillory/checks/RecordInHand.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

// As ForEachSubfield has them: what stands before the first delimiter, and a delimiter without a
// code, are no subfields. They are put where there is room for them.
void TakeSubfields(OddBytes::Cursor odd, CheckedField& field, SubfieldInHand* room) {
    const char* const end = odd.End();
    bool isPlain = true;
    bool lacksText = false;
    CodeSet codes;
    CodeSet repeated;
    const auto nextDelimiter = [&odd, &isPlain, end] {
        for (;; isPlain = false) {
            const char* const at = odd.Next();
            if (at == end || *at == zorby::kDelimiter) return at;
        }
    };
    SubfieldInHand* subfield = room;
    for (const char* at = nextDelimiter(); at != end;) {
        const char* const next = nextDelimiter();
        const char* const text = at + 2;
        if (text <= next) {
            *subfield++ = {at[1], {text, next}};
            const CodeSet code = CodeSet::Of(at[1]);
            repeated.AddAll(codes.And(code));
            codes.AddAll(code);
            const bool mayBeBlank = text == next || *text == ' ';
            if (mayBeBlank && IsBlank({text, next})) lacksText = true;
        }
        at = next;
    }
    field.subfields = static_cast<std::uint32_t>(subfield - room);
    field.codes = codes;
    field.repeated = repeated;
    field.isPlain = isPlain;
    field.lacksText = lacksText || subfield == room;
}

}  // namespace

void RecordInHand::Forget() {
    for (const CheckedField& field : Fields()) {
        if (field.number != kNoTag) tags_[field.number].count = 0;
    }
    oddTags_.clear();
    usedFields_ = 0;
    usedSubfields_ = 0;
    isPlain_ = true;
}

std::uint32_t RecordInHand::CountOdd(std::string_view tag) {
    return ++oddTags_[Place::OfField(tag).tag];
}

inline std::uint32_t RecordInHand::Count(std::string_view tag, unsigned number) {
    if (number == kNoTag) return CountOdd(tag);
    FieldsOfTag& fields = tags_[number];
    if (fields.count == 0) fields.first = static_cast<std::uint32_t>(usedFields_);
    return ++fields.count;
}

// Fields and subfields are used again, since it takes longer to make them. A subfield has two bytes
// or more.
void RecordInHand::MakeRoom(const Record& record) {
    std::size_t bytes = 0;
    for (const auto& field : record.fields) bytes += field.content.size();
    if (fields_.size() < record.fields.size()) fields_.resize(2 * record.fields.size());
    if (subfields_.size() < bytes / 2) subfields_.resize(bytes);
}

void RecordInHand::Take(const Record& record) {
    Forget();
    MakeRoom(record);
    leader_ = record.leader;
    odd_.Begin(record.bytes);
    for (const auto& [tag, content] : record.fields) {
        const unsigned number = TagNumber(tag);
        const std::uint32_t occurrence = Count(tag, number);
        CheckedField& field = fields_[usedFields_++];
        field.Begin(tag, content, number, RuleOf(number), occurrence);
        field.firstSubfield = static_cast<std::uint32_t>(usedSubfields_);
        OddBytes::Cursor odd = odd_.In(content);
        if (number >= kFirstDataTag) {
            TakeSubfields(odd, field, subfields_.data() + usedSubfields_);
            usedSubfields_ += field.subfields;
        } else {
            field.isPlain = odd.Next() == odd.End();
            field.lacksText = IsBlank(content);
        }
        isPlain_ = isPlain_ && field.isPlain;
    }
}

const CheckedField* RecordInHand::Whole008() const {
    constexpr unsigned kTag = 8;
    constexpr std::size_t kSize = 40;
    const CheckedField* field = First(kTag);
    return field != nullptr && field->content.size() == kSize ? field : nullptr;
}

std::string_view RecordInHand::TextOf(const CheckedField& field, char code) const {
    if (!field.Has(code)) return {};
    const auto subfields = SubfieldsOf(field);
    const auto found = std::ranges::find(subfields, code, &SubfieldInHand::code);
    return found != subfields.end() ? found->text : std::string_view();
}

const FieldRule& RecordInHand::RuleFor(const CheckedField& field) const {
    const FieldRule& own = *field.rule;
    if (own.role != kRoleLinked) return own;
    const unsigned tag = TagNumber(TextOf(field, '6').substr(0, kTagSize));
    return tag != kNoTag && RuleOf(tag).isKnown ? RuleOf(tag) : own;
}

}  // namespace quillory
