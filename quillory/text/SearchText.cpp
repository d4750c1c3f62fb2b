#include <quillory/text/Ascii.h>
#include <quillory/text/SearchText.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace quillory {
namespace {

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

// LowerAscii for eight bytes of ASCII.
std::uint64_t LowerEight(std::uint64_t bytes) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    const std::uint64_t notBelow = bytes + kOnes * (0x80 - 'A');
    const std::uint64_t above = bytes + kOnes * (0x7F - 'Z');
    const std::uint64_t isUpper = notBelow & ~above & (kOnes * 0x80);
    return bytes | isUpper >> 2;  // 0x20
}

// Folds what is ASCII at the front of a text. Result: how much that is.
std::size_t FoldAscii(std::string_view text, char* folded) {
    constexpr std::uint64_t kNotAscii = 0x8080808080808080;
    std::size_t at = 0;
    for (; text.size() - at >= sizeof(std::uint64_t); at += sizeof(std::uint64_t)) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
        if ((bytes & kNotAscii) != 0) break;
        bytes = LowerEight(bytes);
        std::memcpy(folded + at, &bytes, sizeof bytes);
    }
    for (; at < text.size() && IsAscii(text[at]); ++at) folded[at] = LowerAscii(text[at]);
    return at;
}

// A text that is not UTF-8 stays as it is.
std::string Mapped(std::string_view utf8, int options) {
    utf8proc_uint8_t* mapped = nullptr;
    const utf8proc_ssize_t size =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(utf8.data()),
                     static_cast<utf8proc_ssize_t>(utf8.size()), &mapped,
                     static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | options));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
    if (size < 0) return std::string(utf8);
    return {reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(size)};
}

constexpr int kFold = UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK;

// Characters up to this one, which are the Latin letters of Europe, modifiers and diacritics, fold
// each for itself, whatever stands beside it.
constexpr char32_t kLatinEnd = 0x0370;

using LatinFolds = std::array<std::string, kLatinEnd>;

const std::string& FoldOfLatin(char32_t c) {
    static const LatinFolds folds = [] {
        LatinFolds made;
        for (char32_t i = 0; i < kLatinEnd; ++i) {
            std::string letter;
            AppendUtf8(i, letter);
            made[i] = Mapped(letter, kFold);
        }
        return made;
    }();
    return folds[c];
}

// The character of two bytes at the front of a text; 0 for any other.
char32_t TwoByteCharacter(std::string_view text) {
    constexpr unsigned kFirstLead = 0xC2;
    constexpr unsigned kLastLead = 0xDF;
    const auto lead = static_cast<unsigned char>(text[0]);
    const bool isOne =
        text.size() > 1 && kFirstLead <= lead && lead <= kLastLead && IsContinuation(text[1]);
    if (!isOne) return 0;
    return (lead & 0x1FU) << 6U | (static_cast<unsigned char>(text[1]) & 0x3FU);
}

// False for a text with other characters.
bool FoldLatin(std::string_view utf8, std::string& folded) {
    folded.resize(utf8.size());
    std::size_t at = FoldAscii(utf8, folded.data());
    folded.resize(at);
    while (at < utf8.size()) {
        if (IsAscii(utf8[at])) {
            folded += LowerAscii(utf8[at++]);
            continue;
        }
        const char32_t c = TwoByteCharacter(utf8.substr(at));
        if (c == 0 || c >= kLatinEnd) return false;
        folded += FoldOfLatin(c);
        at += 2;
    }
    return true;
}

}  // namespace

std::string TidyText(std::string_view utf8) {
    const auto* p = reinterpret_cast<const utf8proc_uint8_t*>(utf8.data());
    const auto* const end = p + utf8.size();
    std::string tidy;
    bool gap = false;
    while (p != end) {
        utf8proc_int32_t c = 0;
        const utf8proc_ssize_t size = utf8proc_iterate(p, end - p, &c);
        if (size < 1 || IsControlCharacter(static_cast<char32_t>(c)) || c == ' ') {
            gap = true;
        } else {
            if (gap && !tidy.empty()) tidy += ' ';
            gap = false;
            tidy.append(reinterpret_cast<const char*>(p), static_cast<std::size_t>(size));
        }
        p += size < 1 ? 1 : size;
    }
    return tidy;
}

void Fold(std::string_view utf8, std::string& folded) {
    if (!FoldLatin(utf8, folded)) folded = Mapped(utf8, kFold);
}

std::string Folded(std::string_view utf8) {
    std::string folded;
    Fold(utf8, folded);
    return folded;
}

std::string WithoutMarks(std::string_view utf8) {
    return Mapped(utf8, UTF8PROC_STRIPMARK);
}

std::string_view TitleKeyOf(std::string_view folded) {
    if (folded.size() <= kTitleKeySize) return folded;
    constexpr unsigned kContinuationMask = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    std::size_t size = kTitleKeySize;
    while (size > 0 &&
           (static_cast<unsigned char>(folded[size]) & kContinuationMask) == kContinuation) {
        --size;
    }
    return folded.substr(0, size);
}

}  // namespace quillory
