#include <quillory/text/Letters.h>
#include <quillory/text/Utf8.h>

#include <algorithm>

namespace quillory {

std::size_t LetterSize(std::string_view utf8) {
    constexpr unsigned char kFirstNotAscii = 0x80;
    std::size_t size = std::min(DecodeUtf8(utf8).size, utf8.size());
    while (size < utf8.size() && static_cast<unsigned char>(utf8[size]) >= kFirstNotAscii) {
        const Utf8Char next = DecodeUtf8(utf8.substr(size));
        if (!next.valid || !IsCombining(next.codePoint)) break;
        size += next.size;
    }
    return size;
}

}  // namespace quillory
