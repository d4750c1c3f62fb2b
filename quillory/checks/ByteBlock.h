#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillory {

// A bit for each byte of a block, the lowest for the first.
using BlockBits = std::uint32_t;

// Sixteen bytes that are looked at together.
class ByteBlock {
public:
    static constexpr std::size_t kSize = 16;
    static constexpr BlockBits kAll = 0xFFFF;

    // All sixteen bytes from there on are read.
    explicit ByteBlock(const char* bytes) { std::memcpy(&bytes_, bytes, kSize); }

    // Which bytes are this one.
    BlockBits Equal(char byte) const;
    // Which bytes are not printable ASCII (0x20 to 0x7E).
    BlockBits NotPlain() const;

private:
#ifdef __SSE2__
    static BlockBits BitsOf(__m128i found) {
        return static_cast<BlockBits>(_mm_movemask_epi8(found));
    }

    __m128i bytes_;
#else
    template <class IsFound>
    BlockBits BitsOf(IsFound isFound) const {
        BlockBits bits = 0;
        for (std::size_t i = 0; i < kSize; ++i) bits |= BlockBits{isFound(bytes_[i])} << i;
        return bits;
    }

    char bytes_[kSize];
#endif
};

#ifdef __SSE2__
inline BlockBits ByteBlock::Equal(char byte) const {
    return BitsOf(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(byte)));
}

// Bytes from 0x80 on are negative.
inline BlockBits ByteBlock::NotPlain() const {
    const __m128i isBelow = _mm_cmplt_epi8(bytes_, _mm_set1_epi8(0x20));
    const __m128i isDelete = _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(0x7F));
    return BitsOf(_mm_or_si128(isBelow, isDelete));
}
#else
inline BlockBits ByteBlock::Equal(char byte) const {
    return BitsOf([byte](char c) { return c == byte; });
}

inline BlockBits ByteBlock::NotPlain() const {
    return BitsOf([](char c) { return !(0x20 <= c && c < 0x7F); });
}
#endif

// Calls `take` for all bytes of a text, block by block, with the block, where it begins in the
// text, and those of its bytes that no block before it had. The last block may begin in the one
// before it, and a text shorter than a block is filled up.
template <class Take>
void ForEachBlock(std::string_view text, Take take) {
    constexpr std::size_t kSize = ByteBlock::kSize;
    char filled[kSize] = {};
    const bool isShort = text.size() < kSize;
    if (isShort) std::copy(text.begin(), text.end(), filled);
    const char* const bytes = isShort ? filled : text.data();
    const std::size_t last = isShort ? 0 : text.size() - kSize;
    const BlockBits all = isShort ? ~(~BlockBits{0} << text.size()) : ByteBlock::kAll;
    for (std::size_t next = 0; next < text.size(); next += kSize) {
        const std::size_t at = std::min(next, last);
        take(ByteBlock(bytes + at), at, all << (next - at) & all);
    }
}

}  // namespace quillory
