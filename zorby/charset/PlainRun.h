#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zorby {

// Returns how many bytes from `begin` on, up to `end`, are printable ASCII (0x20 to 0x7E) and
// therefore the same in MARC-8, UTF-8, Latin-1 and the `Qm` code.
inline std::size_t PlainRunLength(const char* begin, const char* end) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    const char* p = begin;
    if constexpr (std::endian::native == std::endian::little) {
        for (; end - p >= 8; p += 8) {
            std::uint64_t word = 0;
            std::memcpy(&word, p, sizeof word);
            // A byte outside the range sets its top bit; carries and borrows come only from such a
            // byte, so the lowest bit found is exact.
            const std::uint64_t outside =
                ((word - kOnes * 0x20) | word | (word + kOnes)) & (kOnes * 0x80);
            if (outside != 0) {
                return static_cast<std::size_t>(p - begin) +
                       static_cast<std::size_t>(std::countr_zero(outside)) / 8;
            }
        }
    }
    while (p != end && *p >= 0x20 && *p < 0x7F) ++p;
    return static_cast<std::size_t>(p - begin);
}

}  // namespace zorby
