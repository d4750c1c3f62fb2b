#include <quillory/text/Charset.h>
#include <zorby/charset/PlainRun.h>
#include <zorby/record/CommFormat.h>

#include <utf8proc.h>

namespace quillory {
namespace {

constexpr char kUtf8Label = 'a';

// Bytes of the character at `p`; below 1 if no character begins there.
std::ptrdiff_t SizeOfCharacter(const char* p, const char* end) {
    utf8proc_int32_t codePoint = 0;
    return utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(p), end - p, &codePoint);
}

}  // namespace

std::string_view CharsetName(Charset charset) {
    switch (charset) {
        case kCharsetMarc8:
            return "MARC-8";
        case kCharsetUtf8:
            return "UTF-8";
        case kCharsetLatin1:
            return "Latin-1";
        case kCharsetAuto:
            break;
    }
    return "auto";
}

Charset LabelledCharset(std::string_view leader) {
    const bool isUtf8 = leader.size() > zorby::kLeaderCharacterCode &&
                        leader[zorby::kLeaderCharacterCode] == kUtf8Label;
    return isUtf8 ? kCharsetUtf8 : kCharsetMarc8;
}

char LabelFor(Charset charset) {
    return charset == kCharsetUtf8 ? kUtf8Label : ' ';
}

std::size_t FindInvalidUtf8(std::string_view text) {
    const char* p = text.data();
    const char* const end = p + text.size();
    while ((p += zorby::PlainRunLength(p, end)) != end) {
        const std::ptrdiff_t size = SizeOfCharacter(p, end);
        if (size < 1) return static_cast<std::size_t>(p - text.data());
        p += size;
    }
    return text.npos;
}

void CountUtf8(std::string_view text, Utf8Counts& counts) {
    const char* p = text.data();
    const char* const end = p + text.size();
    while ((p += zorby::PlainRunLength(p, end)) != end) {
        const std::ptrdiff_t size = SizeOfCharacter(p, end);
        if (size < 1) {
            ++counts.invalid;
        } else if (size > 1) {
            ++counts.valid;
        }
        p += size < 1 ? 1 : size;
    }
}

bool IsValidUtf8(std::string_view text) {
    return FindInvalidUtf8(text) == text.npos;
}

}  // namespace quillory
