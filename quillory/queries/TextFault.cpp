#include <quillory/queries/TextFault.h>
#include <quillory/text/Utf8.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kIndent = "    ";
// So much of a longer line is shown on each side of the fault.
constexpr std::size_t kMostBefore = 60;
constexpr std::size_t kMostAfter = 100;

struct Shown {
    std::string text;
    std::size_t characters = 0;
};

// A text that a terminal shows in as many columns as it has characters.
Shown ShownOf(std::string_view text) {
    Shown shown;
    while (!text.empty()) {
        const Utf8Char c = DecodeUtf8(text);
        const bool isSafe =
            c.valid && c.codePoint >= ' ' && (c.codePoint < 0x7F || c.codePoint > 0x9F);
        shown.text += isSafe ? text.substr(0, c.size) : "?";
        ++shown.characters;
        text.remove_prefix(c.size);
    }
    return shown;
}

bool IsInCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// The part of a long line around the fault, from a whole character on.
std::size_t FirstShown(std::string_view line, std::size_t offset) {
    std::size_t first = offset <= kMostBefore ? 0 : offset - kMostBefore;
    while (first < offset && IsInCharacter(line[first])) ++first;
    return first;
}

}  // namespace

std::string CaretText(std::string_view text, const TextFault& fault) {
    std::size_t offset = std::min(fault.offset, text.size());
    const std::size_t lineStart = text.substr(0, offset).rfind('\n') + 1;
    std::string_view line = text.substr(lineStart, text.find('\n', offset) - lineStart);
    offset -= lineStart;
    const std::size_t first = FirstShown(line, offset);
    line = line.substr(first, offset - first + kMostAfter);
    offset -= first;

    const Shown before = ShownOf(line.substr(0, offset));
    const Shown meant = ShownOf(line.substr(offset, fault.length));
    const Shown after =
        ShownOf(line.substr(offset).substr(std::min(fault.length, line.size() - offset)));
    const std::size_t tail = meant.characters > 1 ? meant.characters - 1 : 0;
    std::string shown = FaultReason(fault) + "\n";
    shown.append(kIndent).append(before.text).append(meant.text).append(after.text).append("\n");
    shown.append(kIndent).append(before.characters, ' ').append("^").append(tail, '~');
    return shown;
}

}  // namespace quillory
