#include <quillory/text/SearchText.h>

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace quillory {
namespace {

constexpr utf8proc_int32_t kFirstPrintable = 0x20;
constexpr utf8proc_int32_t kFirstC1Control = 0x7F;
constexpr utf8proc_int32_t kLastC1Control = 0x9F;

bool IsControl(utf8proc_int32_t c) {
    return c < kFirstPrintable || (c >= kFirstC1Control && c <= kLastC1Control);
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
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

}  // namespace

std::string TidyText(std::string_view utf8) {
    const auto* p = reinterpret_cast<const utf8proc_uint8_t*>(utf8.data());
    const auto* const end = p + utf8.size();
    std::string tidy;
    bool gap = false;
    while (p != end) {
        utf8proc_int32_t c = 0;
        const utf8proc_ssize_t size = utf8proc_iterate(p, end - p, &c);
        if (size < 1 || IsControl(c) || c == ' ') {
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

std::string Folded(std::string_view utf8) {
    std::string folded;
    if (FoldAscii(utf8, folded)) return folded;
    return Mapped(utf8, UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK);
}

bool FoldAscii(std::string_view text, std::string& folded) {
    folded.resize(text.size());
    unsigned char all = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        all |= static_cast<unsigned char>(text[i]);
        folded[i] = LowerAscii(text[i]);
    }
    return all < 0x80;
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
