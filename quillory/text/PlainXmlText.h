#pragma once

#include <quillory/text/TextBuilder.h>
#include <quillory/text/Utf8Size.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillory {

// Text of XML that is the same in the file and outside of it, read and written in blocks: all bytes
// of a block are copied and looked at together, and those after the first misfit do not count.
// Misfits are controls, the signs < > & ", and what is beyond ASCII.
class PlainXmlBlocks {
public:
    // Copies the plain bytes at the front of a text. Result: how many they are. Most texts end in
    // their first block.
    static std::size_t Append(std::string_view text, TextBuilder& out) {
#ifdef __SSE2__
        if (text.size() >= kBlock) {
            const std::size_t plain = AppendBlock<kBlock>(text.data(), out);
            if (plain < kBlock) return plain;
            text.remove_prefix(kBlock);
            return kBlock + AppendBlocks(text, out);
        }
#endif
        return AppendBlocks(text, out);
    }

private:
    using Word = std::uint64_t;  // eight bytes of a text, the first of them lowest
    static constexpr bool kIsFirstLowest = std::endian::native == std::endian::little;

    static std::size_t AppendBlocks(std::string_view text, TextBuilder& out) {
        std::size_t size = 0;
#ifdef __SSE2__
        while (text.size() - size >= kBlock) {
            const std::size_t plain = AppendBlock<kBlock>(text.data() + size, out);
            size += plain;
            if (plain < kBlock) return size;
        }
        if (text.size() - size >= kHalf) {
            const std::size_t plain = AppendBlock<kHalf>(text.data() + size, out);
            size += plain;
            if (plain < kHalf) return size;
        }
#endif
        return size + AppendWords(text.substr(size), out);
    }

#ifdef __SSE2__
    static constexpr std::size_t kBlock = 32;
    static constexpr std::size_t kHalf = 16;

    // Copies a block, and takes in the plain bytes at its front. Result: how many they are.
    template <std::size_t kSize>
    static std::size_t AppendBlock(const char* from, TextBuilder& out) {
        char* const to = out.Room(kSize);
        std::uint32_t misfits = MisfitsOfHalf(from, to);
        if constexpr (kSize == kBlock) {
            misfits |= MisfitsOfHalf(from + kHalf, to + kHalf) << kHalf;
        } else {
            misfits |= 1U << kHalf;
        }
        const auto plain = static_cast<std::size_t>(std::countr_zero(misfits));
        out.Take(plain);
        return plain;
    }

    // A bit for each misfit. Bytes beyond ASCII are negative, and so less than a blank, too.
    static std::uint32_t MisfitsOfHalf(const char* from, char* to) {
        __m128i bytes;
        std::memcpy(&bytes, from, sizeof bytes);
        std::memcpy(to, &bytes, sizeof bytes);
        const auto isEither = [bytes](char one, char other) {
            const __m128i sameBits = _mm_set1_epi8(static_cast<char>(~(one ^ other)));
            return _mm_cmpeq_epi8(_mm_and_si128(bytes, sameBits), _mm_set1_epi8(one & other));
        };
        const __m128i controls = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        const __m128i signs = _mm_or_si128(isEither('<', '>'), isEither('&', '"'));
        const __m128i misfits = _mm_or_si128(controls, signs);
        return static_cast<std::uint32_t>(_mm_movemask_epi8(misfits));
    }
#endif

    template <class Number>
    static Word Load(const char* from) {
        Number number = 0;
        std::memcpy(&number, from, sizeof number);
        return number;
    }

    static void Store(Word word, char* to) {
        if constexpr (!kIsFirstLowest) word = __builtin_bswap64(word);
        std::memcpy(to, &word, sizeof word);
    }

    // The bytes at the front of a text; zeros where there are none.
    static Word WordAt(const char* text, std::size_t size) {
        if constexpr (kIsFirstLowest) {
            constexpr std::size_t kHalfWord = 4;
            if (size >= sizeof(Word)) return Load<Word>(text);
            if (size >= kHalfWord) {
                const std::size_t more = size - kHalfWord;
                return Load<std::uint32_t>(text) | Load<std::uint32_t>(text + more) << 8 * more;
            }
        }
        Word word = 0;
        for (std::size_t i = std::min(size, sizeof word); i > 0; --i) {
            word = word << 8 | static_cast<unsigned char>(text[i - 1]);
        }
        return word;
    }

    // Sets the top bit of each misfit. Carries and borrows come only from a misfit, so the lowest
    // bit found is exact.
    static constexpr Word MisfitsOf(Word bytes) {
        constexpr Word kOnes = 0x0101010101010101;
        const auto zeros = [](Word word) { return (word - kOnes) & ~word; };
        const Word others = zeros((bytes & ~(kOnes * ('"' ^ '&'))) ^ (kOnes * '"'));
        const Word brackets = zeros((bytes & ~(kOnes * ('<' ^ '>'))) ^ (kOnes * '<'));
        const Word controls = bytes - kOnes * ' ';
        return (bytes | controls | others | brackets) & (kOnes * 0x80);
    }

    // The zeros past the end of a text are misfits.
    static std::size_t AppendWords(std::string_view text, TextBuilder& out) {
        char* const to = out.Room(text.size() + sizeof(Word));
        for (std::size_t at = 0;; at += sizeof(Word)) {
            const Word word = WordAt(text.data() + at, text.size() - at);
            Store(word, to + at);
            const Word misfits = MisfitsOf(word);
            if (misfits == 0) continue;
            const std::size_t size = at + static_cast<std::size_t>(std::countr_zero(misfits)) / 8;
            out.Take(size);
            return size;
        }
    }
};

// Appends the bytes at the front of a text that stand in XML as they are, whatever is beside them:
// printable ASCII but for < > & ". Result: how many they are.
inline std::size_t AppendPlainXml(std::string_view text, TextBuilder& out) {
    return PlainXmlBlocks::Append(text, out);
}

// The same for characters beyond ASCII that can stand in XML.
inline std::size_t AppendXmlBeyondAscii(std::string_view text, TextBuilder& out) {
    std::size_t size = 0;
    while (const std::size_t next = XmlCharacterSize(text.substr(size))) size += next;
    out += text.substr(0, size);
    return size;
}

}  // namespace quillory
