#pragma once

#include <zorby/elements/CFPart.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zorby {

// Knows values of elements that a repair certainly leaves as they are, whatever the material and
// the default. This index over code menus and rules serves speed, since most elements of most
// records are valid.
class ValidValues {
public:
    static const ValidValues& Get();

    // A result of false decides nothing.
    bool Has(CFPart part, std::string_view bytes) const {
        const ByteSet& set = bytes_[IndexOf(part)];
        const bool isByBytes = std::all_of(bytes.begin(), bytes.end(), [&](char byte) {
            return set[static_cast<unsigned char>(byte)];
        });
        return isByBytes || (bytes.size() > 1 && HasCode(part, bytes));
    }

private:
    using ByteSet = std::bitset<256>;

    ValidValues();
    bool HasCode(CFPart part, std::string_view code) const;
    static ByteSet CodesOfOneByte(CFPart part);
    void AddLongCodes(CFPart part);

    // Index 0 is for undefined positions. No element from kSize on is ever tested.
    static std::size_t IndexOf(CFPart part) {
        return part > 0 && part < static_cast<int>(kSize) ? static_cast<std::size_t>(part) : 0;
    }

    static constexpr std::size_t kSize = CFPCombinedFormOfItem;
    std::vector<ByteSet> bytes_ = std::vector<ByteSet>(kSize);  // those valid by themselves
    std::unordered_set<std::uint64_t> codes_;                   // codes of several bytes
};

}  // namespace zorby
