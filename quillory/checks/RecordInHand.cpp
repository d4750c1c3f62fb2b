#include <quillory/checks/ByteBlock.h>
#include <quillory/checks/RecordInHand.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace quillory {
namespace {

bool IsPlain(std::string_view text) {
    BlockBits odd = 0;
    ForEachBlock(text, [&odd](const ByteBlock& block, std::size_t, BlockBits fresh) {
        odd |= block.NotPlain() & fresh;
    });
    return odd == 0;
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
            field.isPlain = IsPlain(content);
            field.lacksText = IsBlank(content);
        }
    }
}

// Lists where the delimiters of a field stand, and its end. There is room for one at each byte.
std::span<const std::size_t> RecordInHand::EndsIn(std::string_view content, bool& isPlain) {
    if (ends_.size() <= content.size()) ends_.resize(2 * content.size() + 1);
    std::size_t* end = ends_.data();
    BlockBits odd = 0;
    ForEachBlock(content, [&](const ByteBlock& block, std::size_t begin, BlockBits fresh) {
        const BlockBits delimiters = block.Equal(zorby::kDelimiter) & fresh;
        odd |= (block.NotPlain() & fresh) ^ delimiters;
        for (BlockBits rest = delimiters; rest != 0; rest &= rest - 1) {
            *end++ = begin + static_cast<std::size_t>(std::countr_zero(rest));
        }
    });
    *end++ = content.size();
    isPlain = odd == 0;
    return {ends_.data(), end};
}

// As ForEachSubfield has them: what stands before the first delimiter, and a delimiter without a
// code, are no subfields.
void RecordInHand::TakeSubfields(CheckedField& field) {
    const std::string_view content = field.content;
    ByteSet codes;
    ByteSet repeated;
    bool lacksText = false;
    const std::span<const std::size_t> ends = EndsIn(content, field.isPlain);
    std::size_t delimiter = ends.front();
    for (const std::size_t end : ends.subspan(1)) {
        const std::size_t at = std::exchange(delimiter, end) + 1;
        if (at >= end) continue;
        const char code = content[at];
        const std::string_view text(content.data() + at + 1, end - at - 1);
        subfields_.push_back({code, text});
        if (!codes.Insert(code)) repeated.Add(code);
        lacksText = lacksText || IsBlank(text);
    }
    field.codes = codes;
    field.repeated = repeated;
    field.subfields = subfields_.size() - field.firstSubfield;
    field.lacksText = lacksText || field.subfields == 0;
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
