#pragma once

#include <array>
#include <cstddef>

namespace zorby {

// A set of finding codes: code c is bit c % 8 of byte c / 8.
class ErrorCodeSet {
public:
    static constexpr int kBits = 200;
    static constexpr std::size_t kBytes = kBits / 8;

    // Ignores a code outside the set.
    void Set(int code) {
        if (code < 0 || code >= kBits) return;
        unsigned char& byte = bytes_[static_cast<std::size_t>(code) / 8];
        byte = static_cast<unsigned char>(byte | 1 << code % 8);
    }

    bool Has(int code) const {
        if (code < 0 || code >= kBits) return false;
        return (bytes_[static_cast<std::size_t>(code) / 8] >> code % 8 & 1) != 0;
    }

    bool Intersects(const ErrorCodeSet& other) const {
        for (std::size_t i = 0; i < kBytes; ++i) {
            if ((bytes_[i] & other.bytes_[i]) != 0) return true;
        }
        return false;
    }

    unsigned char* Data() { return bytes_.data(); }
    const unsigned char* Data() const { return bytes_.data(); }

private:
    std::array<unsigned char, kBytes> bytes_{};
};

}  // namespace zorby
