#include <zorby/text/General.h>

#include <algorithm>
#include <array>
#include <optional>

namespace zorby {

namespace {

constexpr std::array<const char*, 11> kVolumeAndCopyMarks{
    " volume", " vol.", " v.", " copy", " c.", " Volume", " Vol.", " V.", " Copy", " C.", nullptr};

bool IsSeparator(char byte) {
    return byte == ' ' || byte == '/';
}

// `piece` is the text between two separators, including the first of them.
bool IsVolumeOrCopyMark(std::string_view piece) {
    return std::any_of(
        kVolumeAndCopyMarks.begin(), kVolumeAndCopyMarks.end() - 1,
        [piece](std::string_view mark) { return piece.substr(1) == mark.substr(1); });
}

}  // namespace

const char* const* CGeneral::CopyVolumeSkipList() {
    return kVolumeAndCopyMarks.data();
}

std::string CGeneral::BreakCallNumber(std::string_view callNumber, int lineFeedOnly) {
    const std::string_view lineEnd = lineFeedOnly ? "\n" : "\r\n";
    std::string lines;
    std::optional<std::size_t> previous;
    for (std::size_t i = 0; i < callNumber.size(); ++i) {
        if (!IsSeparator(callNumber[i])) {
            lines += callNumber[i];
            continue;
        }
        const bool isAfterMark =
            previous && IsVolumeOrCopyMark(callNumber.substr(*previous, i - *previous));
        lines += isAfterMark ? " " : lineEnd;
        previous = i;
    }
    return lines;
}

}  // namespace zorby
