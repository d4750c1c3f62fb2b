#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quillory {

// The codes of the subfields in a field: which letters from a to z, which digits, and whether there
// is any other.
class CodeSet {
public:
    constexpr CodeSet() = default;
    static constexpr CodeSet Of(char code) {
        return CodeSet(std::uint64_t{1} << kBits[static_cast<unsigned char>(code)]);
    }
    static constexpr CodeSet Of(std::string_view codes) {
        CodeSet set;
        for (const char code : codes) set.AddAll(Of(code));
        return set;
    }

    // Whether the code is there, or, for one that is no letter from a to z and no digit, any such
    // one.
    constexpr bool MayHave(char code) const { return (bits_ & Of(code).bits_) != 0; }
    constexpr bool IsWithin(CodeSet other) const { return (bits_ & ~other.bits_) == 0; }
    constexpr CodeSet And(CodeSet other) const { return CodeSet(bits_ & other.bits_); }
    constexpr void AddAll(CodeSet other) { bits_ |= other.bits_; }

    // Its letters and digits, without the others.
    constexpr CodeSet LettersAndDigits() const {
        return CodeSet(bits_ & ~(std::uint64_t{1} << kOther));
    }

private:
    static constexpr std::uint8_t kOther = 36;
    // The bit of each code.
    static constexpr auto kBits = [] {
        std::array<std::uint8_t, 256> bits{};
        bits.fill(kOther);
        std::uint8_t next = 0;
        for (unsigned char code = 'a'; code <= 'z'; ++code) bits[code] = next++;
        for (unsigned char code = '0'; code <= '9'; ++code) bits[code] = next++;
        return bits;
    }();

    constexpr explicit CodeSet(std::uint64_t bits) : bits_(bits) {}

    std::uint64_t bits_ = 0;
};

}  // namespace quillory
