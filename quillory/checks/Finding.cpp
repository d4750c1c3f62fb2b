#include <quillory/checks/Finding.h>
#include <quillory/text/QmText.h>
#include <zorby/checking/RecordError.h>

#include <algorithm>

namespace quillory {
namespace {

// Neither error nor warning: the words come without a prefix.
constexpr auto kNoPrefix = static_cast<zorby::E_ERROR_CODE_SUB_TYPE>(-1);

bool IsNumber(std::string_view tag) {
    return std::ranges::all_of(tag, [](char c) { return '0' <= c && c <= '9'; });
}

std::string Readable(std::string_view bytes) {
    const auto isPlain = [](char c) { return ' ' <= c && c <= '~'; };
    std::string text(bytes);
    if (std::ranges::all_of(text, isPlain)) return text;
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
    return QmToUtf8(text);
}

// What the words call the number: the limit for a record, the tag for all else.
std::int32_t NumberOf(const Finding& finding) {
    if (finding.code == zorby::EC_RecordTooLong) return zorby::kLongestExportedRecord;
    return finding.Tag().empty() || !IsNumber(finding.Tag())
               ? 0
               : std::stoi(std::string(finding.Tag()));
}

std::string Words(const Finding& finding, int isLong) {
    std::string text;
    zorby::CRecordError(finding.code, kNoPrefix, NumberOf(finding), finding.subfield)
        .GetEnglishMessage(text, isLong);
    while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
    // A tag that is no number has none that the library could put in its words.
    if (!IsNumber(finding.Tag())) {
        if (const std::size_t at = text.find("000"); at != text.npos) {
            text.replace(at, finding.Tag().size(), finding.Tag());
        }
    }
    return Readable(text);
}

}  // namespace

std::string ShortText(const Finding& finding) {
    return Words(finding, 0);
}

std::string LongText(const Finding& finding) {
    return Words(finding, 1);
}

std::string PlaceText(const Finding& finding) {
    std::string text = Readable(finding.Tag());
    if (finding.occurrence > 1) text += " occurrence " + std::to_string(finding.occurrence);
    if (finding.subfield != '\0') text += " $" + Readable({&finding.subfield, 1});
    return text;
}

std::string LineText(const Finding& finding) {
    const std::string line = (finding.IsError() ? "E: " : "W: ") + ShortText(finding);
    const std::string place = PlaceText(finding);
    return place.empty() ? line : line + " [" + place + "]";
}

}  // namespace quillory
