#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillory {

// Whether all bytes are ASCII from `kLeast` on and none of them is one of `kSigns`. Compilers
// compare the bytes of a block at once, so this takes about an instruction a byte.
template <char kLeast, char... kSigns>
bool IsAsciiWithout(std::string_view text) {
    constexpr std::size_t kBlock = 16;
    constexpr char kFit = 'x';
    static_assert(kFit >= kLeast && ((kFit != kSigns) && ...));
    std::array<unsigned char, kBlock> misfits{};
    const auto look = [&misfits](const char* block) {
        for (std::size_t i = 0; i < kBlock; ++i) {
            const auto byte = static_cast<signed char>(block[i]);
            const bool isMisfit = (byte < kLeast) | ((byte == kSigns) | ...);
            misfits[i] |= static_cast<unsigned char>(isMisfit);
        }
    };
    if (text.size() < kBlock) {
        std::array<char, kBlock> copy;
        copy.fill(kFit);
        if (!text.empty()) std::memcpy(copy.data(), text.data(), text.size());
        look(copy.data());
    } else {
        const char* const last = text.data() + text.size() - kBlock;
        for (const char* block = text.data(); block < last; block += kBlock) look(block);
        look(last);  // it may overlap the block before it
    }
    const auto words = std::bit_cast<std::array<std::uint64_t, 2>>(misfits);
    return (words[0] | words[1]) == 0;
}

}  // namespace quillory
