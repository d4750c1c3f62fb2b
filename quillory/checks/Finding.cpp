#include <quillory/checks/Finding.h>
#include <quillory/text/QmText.h>
#include <zorby/checking/RecordError.h>

#include <algorithm>

namespace quillory {
namespace {

// Neither error nor warning: the words come without a prefix.
constexpr auto kNoPrefix = static_cast<zorby::E_ERROR_CODE_SUB_TYPE>(-1);

std::string Readable(std::string text) {
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
    std::ranges::replace_if(text, isControl, '?');
    const bool isAscii = std::ranges::all_of(text, [](unsigned char c) { return c < 0x80; });
    return isAscii ? text : QmToUtf8(text);
}

// The short words of the library: the long ones speak of menus and windows.
std::string Words(const Finding& finding) {
    std::string text;
    zorby::CRecordError(finding.code, kNoPrefix, zorby::kLongestExportedRecord, finding.place.code)
        .GetEnglishMessage(text, 0, finding.place.Tag());
    while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
    return Readable(text);
}

}  // namespace

std::string LineText(const Finding& finding) {
    const std::string line = (finding.IsError() ? "E: " : "W: ") + Words(finding);
    const std::string place = PlaceText(finding.place);
    return place.empty() ? line : line + " [" + place + "]";
}

}  // namespace quillory
