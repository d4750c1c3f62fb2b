#pragma once

#include <quillory/coded/CodeLists.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace quillory {

// What was found of the values of one element. The same few values come in record after record, so
// one is looked up again only after another one has taken its place.
class StatesSeen {
public:
    static constexpr std::size_t kLongest = 8;  // value, in bytes

    // `value` is at most that long, and as long as all others of the element. `lookUp` gives the
    // state of a value that is not there.
    template <class LookUp>
    CodeState Of(std::string_view value, LookUp lookUp) {
        std::uint64_t packed = 0;
        for (const char c : value) packed = packed << 8 | static_cast<unsigned char>(c);
        Seen& seen = seen_[packed * kStir >> (64 - kBits)];
        if (!seen.isThere || seen.value != packed) seen = {packed, lookUp(value), true};
        return seen.state;
    }

private:
    static constexpr std::uint64_t kStir = 0x9E3779B97F4A7C15;
    static constexpr int kBits = 6;

    struct Seen {
        std::uint64_t value = 0;
        CodeState state = CodeState::Known;
        bool isThere = false;
    };

    std::array<Seen, std::size_t{1} << kBits> seen_;
};

}  // namespace quillory
