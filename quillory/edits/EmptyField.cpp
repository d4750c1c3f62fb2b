#include <quillory/edits/EmptyField.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/places/Tag.h>
#include <zorby/format/MARCFormat.h>

#include <algorithm>

namespace quillory {
namespace {

char Indicator(unsigned number, int which) {
    const char value = zorby::CMARCFormat::DefaultIndicator(number, which);
    return '0' <= value && value <= '9' ? value : ' ';
}

std::string CodesOf(unsigned number) {
    std::string codes;
    if (number != kNoTag) zorby::CMARCFormat::AllSubfieldCodes(number, codes);
    return codes;
}

}  // namespace

std::string EmptyField(std::string_view tag) {
    const unsigned number = TagNumber(tag);
    if (number < kFirstDataTag) return {};
    std::string content = "  ";
    if (number != kNoTag) content = {Indicator(number, 1), Indicator(number, 2)};
    return content + Part(NextCode(tag, {}), {});
}

std::size_t PlaceOfNew(const EditSession::State& record, std::string_view tag) {
    for (std::size_t i = record.fields.size(); i > 0; --i) {
        if (record.fields[i - 1].tag <= tag) return i;
    }
    return 0;
}

char NextCode(std::string_view tag, std::string_view content) {
    const auto isThere = [parts = PartsOf(content).parts](char code) {
        return std::ranges::find(parts, code, CodeOf) != parts.end();
    };
    for (const char code : CodesOf(TagNumber(tag))) {
        const bool isLetter = 'a' <= code && code <= 'z';
        if (isLetter && !isThere(code)) return code;
    }
    return 'a';
}

}  // namespace quillory
