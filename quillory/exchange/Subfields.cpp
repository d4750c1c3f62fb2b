#include <quillory/exchange/Subfields.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Utf8.h>

namespace quillory {
namespace {

bool IsMadeOfSubfields(std::string_view content) {
    const bool hasIndicators = content.size() >= kIndicators && content[0] != zorby::kDelimiter &&
                               content[1] != zorby::kDelimiter &&
                               (content.size() == kIndicators || content[2] == zorby::kDelimiter);
    return hasIndicators && !HasEmptyCode(content);
}

}  // namespace

bool HasEmptyCode(std::string_view content) {
    return content.ends_with(zorby::kDelimiter) || content.find("\x1F\x1F") != content.npos;
}

FieldShape ShapeOf(const zorby::CommFormatField& field) {
    const bool isData = IsMadeOfSubfields(field.content);
    const unsigned tag = TagNumber(field.tag);
    if (tag >= kFirstDataTag && tag != kNoTag) return isData ? kDataShape : kBrokenShape;
    return isData && field.content.size() > kIndicators ? kDataShape : kControlShape;
}

Subfield SubfieldOf(std::string_view part) {
    part.remove_prefix(1);
    const bool isAscii = !part.empty() && static_cast<unsigned char>(part.front()) < 0x80;
    const std::size_t codeSize = isAscii ? 1 : DecodeUtf8(part).size;
    return {part.substr(0, codeSize), part.substr(codeSize)};
}

}  // namespace quillory
