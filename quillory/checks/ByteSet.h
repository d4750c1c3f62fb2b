#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillory {

// A set of bytes, such as the codes of the subfields that a field may have.
class ByteSet {
public:
    static ByteSet All() {
        ByteSet all;
        all.words_.fill(~std::uint64_t{0});
        return all;
    }

    constexpr bool Has(char byte) const { return (words_[Word(byte)] & Bit(byte)) != 0; }
    constexpr void Add(char byte) { words_[Word(byte)] |= Bit(byte); }
    bool IsEmpty() const { return (words_[0] | words_[1] | words_[2] | words_[3]) == 0; }
    ByteSet Without(const ByteSet& other) const {
        ByteSet rest = *this;
        for (std::size_t i = 0; i < kWords; ++i) rest.words_[i] &= ~other.words_[i];
        return rest;
    }
    void AddAll(const ByteSet& other) {
        for (std::size_t i = 0; i < kWords; ++i) words_[i] |= other.words_[i];
    }
    // Calls `take(byte)` for each, from the smallest on.
    template <class Take>
    void ForEach(Take take) const {
        for (std::size_t i = 0; i < kWords; ++i) {
            for (std::uint64_t word = words_[i]; word != 0; word &= word - 1) {
                const auto bit = static_cast<std::size_t>(std::countr_zero(word));
                take(static_cast<unsigned char>(i * kBits + bit));
            }
        }
    }

private:
    static constexpr std::size_t kWords = 4;
    static constexpr std::size_t kBits = 64;

    static constexpr std::size_t Word(char byte) {
        return static_cast<unsigned char>(byte) / kBits;
    }
    static constexpr std::uint64_t Bit(char byte) {
        return std::uint64_t{1} << static_cast<unsigned char>(byte) % kBits;
    }

    std::array<std::uint64_t, kWords> words_{};
};

constexpr ByteSet SetOf(std::string_view bytes) {
    ByteSet set;
    for (const char byte : bytes) set.Add(byte);
    return set;
}

}  // namespace quillory
