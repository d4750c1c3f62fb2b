#pragma once

#include <cstdint>
#include <string_view>

namespace quillory {

// A hash of 64 bits by which bytes are known again, the same on every machine (FNV-1a, published by
// Fowler, Noll and Vo). It does not hold against bytes that somebody made to deceive.
class Fnv1a {
public:
    void Add(char byte) { value_ = (value_ ^ static_cast<unsigned char>(byte)) * kPrime; }
    void Add(std::string_view bytes) {
        for (const char byte : bytes) Add(byte);
    }
    std::uint64_t Value() const { return value_; }

private:
    static constexpr std::uint64_t kStart = 0xCBF29CE484222325;
    static constexpr std::uint64_t kPrime = 0x100000001B3;

    std::uint64_t value_ = kStart;
};

inline std::uint64_t Fnv1aOf(std::string_view bytes) {
    Fnv1a hash;
    hash.Add(bytes);
    return hash.Value();
}

}  // namespace quillory
