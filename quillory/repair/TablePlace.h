#pragma once

#include <cstddef>
#include <cstdint>

namespace quillory {

// Where a table of `size` places keeps what is known of a number that belongs to `owner`; numbers
// that are neighbours are spread.
inline std::size_t TablePlace(const void* owner, std::uint64_t number, std::size_t size) {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    const std::uint64_t spread = (number * kOdd + reinterpret_cast<std::uintptr_t>(owner)) * kOdd;
    return (spread >> 32) * size >> 32;  // by the upper bits, to which all of the number add
}

}  // namespace quillory
