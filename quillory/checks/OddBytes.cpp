#include <quillory/checks/OddBytes.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillory {
namespace {

// Bytes that are looked at together, and a bit for each, the lowest for the first.
constexpr std::size_t kBlock = 64;
using BlockBits = std::uint64_t;

#ifdef __SSE2__
// Bytes from 0x80 on are negative.
BlockBits OddOfSixteen(const char* bytes) {
    __m128i block;
    std::memcpy(&block, bytes, sizeof block);
    const __m128i isBelow = _mm_cmplt_epi8(block, _mm_set1_epi8(0x20));
    const __m128i isDelete = _mm_cmpeq_epi8(block, _mm_set1_epi8(0x7F));
    return static_cast<std::uint16_t>(_mm_movemask_epi8(_mm_or_si128(isBelow, isDelete)));
}

BlockBits OddOfBlock(const char* bytes) {
    return OddOfSixteen(bytes) | OddOfSixteen(bytes + 16) << 16 | OddOfSixteen(bytes + 32) << 32 |
           OddOfSixteen(bytes + 48) << 48;
}
#else
BlockBits OddOfBlock(const char* bytes) {
    BlockBits odd = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        odd |= BlockBits{byte < 0x20 || byte > 0x7E} << i;
    }
    return odd;
}
#endif

// Of a block, or of what is left for the last one.
BlockBits OddOf(std::string_view bytes) {
    if (bytes.size() == kBlock) return OddOfBlock(bytes.data());
    char filled[kBlock];
    std::memset(filled, ' ', kBlock);
    std::copy(bytes.begin(), bytes.end(), filled);
    return OddOfBlock(filled);
}

}  // namespace

void OddBytes::GoTo(std::string_view text) {
    if (LiesIn(text, bytes_)) {
        next_ = std::lower_bound(odd_.data(), odd_.data() + count_, text.data());
    } else {
        Find(LiesIn(text, record_) ? record_ : text);
    }
}

void OddBytes::Find(std::string_view bytes) {
    count_ = 0;
    odd_.resize(std::max(odd_.size(), kBlock));
    for (std::size_t at = 0; at < bytes.size(); at += kBlock) {
        if (odd_.size() - count_ <= kBlock) odd_.resize(2 * (count_ + kBlock));
        for (BlockBits bits = OddOf(bytes.substr(at, kBlock)); bits != 0; bits &= bits - 1) {
            odd_[count_++] = bytes.data() + at + std::countr_zero(bits);
        }
    }
    odd_[count_] = bytes.data() + bytes.size();
    bytes_ = bytes;
    next_ = odd_.data();
}

}  // namespace quillory
