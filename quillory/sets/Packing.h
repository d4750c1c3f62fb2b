#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// Numbers and texts side by side in temporary files: a number in as many bytes as it needs, seven
// bits in each, the lowest first; a text after its size. Taking is for what was appended.

inline void AppendNumber(std::uint64_t number, std::string& out) {
    constexpr unsigned kMore = 0x80;
    for (; number >= kMore; number >>= 7) out += static_cast<char>((number & 0x7F) | kMore);
    out += static_cast<char>(number);
}

inline std::uint64_t TakeNumber(std::string_view& packed) {
    std::uint64_t number = 0;
    for (unsigned shift = 0; !packed.empty(); shift += 7) {
        const auto byte = static_cast<unsigned char>(packed.front());
        packed.remove_prefix(1);
        number |= std::uint64_t{byte & 0x7FU} << shift;
        if (byte < 0x80) break;
    }
    return number;
}

inline void AppendText(std::string_view text, std::string& out) {
    AppendNumber(text.size(), out);
    out += text;
}

inline std::string_view TakeText(std::string_view& packed) {
    const std::size_t size = TakeNumber(packed);
    const std::string_view text = packed.substr(0, size);
    packed.remove_prefix(text.size());
    return text;
}

}  // namespace quillory
