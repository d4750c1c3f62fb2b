#include <quillory/exchange/Subfields.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Utf8.h>

#include <array>
#include <bit>
#include <cstdint>

namespace quillory {
namespace {

// Compilers look at the bytes of a block at once.
bool HasTwoDelimitersTogether(std::string_view content) {
    constexpr std::size_t kTogether = 16;
    std::array<unsigned char, kTogether> found{};
    const auto look = [&found](const char* block) {
        for (std::size_t i = 0; i < kTogether; ++i) {
            const bool isFirst = block[i] == zorby::kDelimiter;
            const bool isSecond = block[i + 1] == zorby::kDelimiter;
            found[i] |= static_cast<unsigned char>(isFirst & isSecond);
        }
    };
    if (content.size() <= kTogether) {
        std::array<char, kTogether + 1> copy{};
        content.copy(copy.data(), content.size());
        look(copy.data());
    } else {
        const char* const last = content.data() + content.size() - 1 - kTogether;
        for (const char* block = content.data(); block < last; block += kTogether) look(block);
        look(last);  // it may overlap the block before it
    }
    const auto words = std::bit_cast<std::array<std::uint64_t, 2>>(found);
    return (words[0] | words[1]) != 0;
}

bool IsMadeOfSubfields(std::string_view content) {
    const bool hasIndicators = content.size() >= kIndicators && content[0] != zorby::kDelimiter &&
                               content[1] != zorby::kDelimiter &&
                               (content.size() == kIndicators || content[2] == zorby::kDelimiter);
    return hasIndicators && !HasEmptyCode(content);
}

}  // namespace

bool HasEmptyCode(std::string_view content) {
    return content.ends_with(zorby::kDelimiter) || HasTwoDelimitersTogether(content);
}

FieldShape ShapeOf(const zorby::CommFormatField& field) {
    const bool isData = IsMadeOfSubfields(field.content);
    const unsigned tag = TagNumber(field.tag);
    if (tag >= kFirstDataTag && tag != kNoTag) return isData ? kDataShape : kBrokenShape;
    return isData && field.content.size() > kIndicators ? kDataShape : kControlShape;
}

std::string_view SubfieldCodeOf(std::string_view text) {
    const bool isAscii = !text.empty() && static_cast<unsigned char>(text.front()) < 0x80;
    return text.substr(0, isAscii ? 1 : DecodeUtf8(text).size);
}

Subfield SubfieldOf(std::string_view part) {
    part.remove_prefix(1);
    const std::string_view code = SubfieldCodeOf(part);
    return {code, part.substr(code.size())};
}

}  // namespace quillory
