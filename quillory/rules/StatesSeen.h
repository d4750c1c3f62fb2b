#pragma once

#include <quillory/coded/CodeLists.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillory {

// What was found of the values of one element. The same few values come in record after record, so
// each is looked up once, and one of several bytes again only after another one has taken its
// place.
class StatesSeen {
public:
    static constexpr std::size_t kLongest = 8;  // value, in bytes

    // `value` is at most that long, and as long as all others of the element. `lookUp` gives the
    // state of a value that is not there.
    template <class LookUp>
    CodeState Of(std::string_view value, LookUp lookUp) {
        if (value.size() == 1) return OfByte(value, lookUp);
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

    template <class LookUp>
    CodeState OfByte(std::string_view value, LookUp lookUp) {
        std::optional<CodeState>& state = ofByte_[static_cast<unsigned char>(value.front())];
        if (!state) state = lookUp(value);
        return *state;
    }

    std::array<std::optional<CodeState>, 256> ofByte_;
    std::array<Seen, std::size_t{1} << kBits> seen_;
};

}  // namespace quillory
