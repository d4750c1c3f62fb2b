#include <quillory/checks/OddBytes.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillory {
namespace {

using BlockBits = OddBytes::BlockBits;
constexpr std::size_t kBlock = OddBytes::kBlock;

#ifdef __SSE2__
// One more than an odd byte is at most a blank, since bytes from 0x80 on are negative.
std::uint32_t OddOfSixteen(const char* bytes) {
    __m128i block;
    std::memcpy(&block, bytes, sizeof block);
    const __m128i oneMore = _mm_add_epi8(block, _mm_set1_epi8(1));
    const __m128i isOdd = _mm_cmplt_epi8(oneMore, _mm_set1_epi8(' ' + 1));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(isOdd));
}

BlockBits OddOfBlock(const char* bytes) {
    constexpr int kHalf = 32;
    const std::uint32_t first = OddOfSixteen(bytes) | OddOfSixteen(bytes + 16) << 16;
    const std::uint32_t second = OddOfSixteen(bytes + 32) | OddOfSixteen(bytes + 48) << 16;
    return BlockBits{second} << kHalf | first;
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

// Of the bytes behind the last whole block, which are too few for another.
BlockBits OddOfRest(std::string_view bytes, std::size_t size) {
    if (size == 0) return 0;
    if (bytes.size() >= kBlock) {
        return OddOfBlock(bytes.data() + bytes.size() - kBlock) >> (kBlock - size);
    }
    char filled[kBlock];
    std::memset(filled, ' ', kBlock);
    std::copy(bytes.begin(), bytes.end(), filled);
    return OddOfBlock(filled);
}

}  // namespace

void OddBytes::Find(std::string_view bytes) {
    const std::size_t blocks = bytes.size() / kBlock;
    words_.resize(std::max(words_.size(), blocks + 1));
    for (std::size_t i = 0; i < blocks; ++i) words_[i] = OddOfBlock(bytes.data() + i * kBlock);
    words_[blocks] = OddOfRest(bytes, bytes.size() % kBlock);
    bytes_ = bytes;
}

}  // namespace quillory
