#include <quillory/exchange/JsonFault.h>
#include <quillory/faults/FaultCode.h>

namespace quillory {

// The exception says "[json.exception.parse_error.101] parse error at line 1, column 2: syntax
// error while parsing value - invalid literal; last read: 'nx'".
ItemFault MalformedJson(std::string_view exception, std::size_t bytesRead) {
    constexpr std::string_view kBeforeWords = ": ";
    const std::size_t start = exception.find(kBeforeWords);
    std::string words = "a number out of range";
    if (start != exception.npos) {
        words = exception.substr(start + kBeforeWords.size());
        words.resize(std::min(words.find("; last read: "), words.size()));
    }
    return {{FaultCode::kMalformedJson, {}, words}, bytesRead == 0 ? 0 : bytesRead - 1};
}

std::optional<ItemFault> NulByteOf(std::string_view text) {
    const std::size_t nul = text.find('\0');
    if (nul == text.npos) return std::nullopt;
    return ItemFault{{FaultCode::kMalformedJson, {}, "a NUL byte"}, nul};
}

}  // namespace quillory
