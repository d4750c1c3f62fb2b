#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// A menu: a fixed number of codes (tags, subfield codes, indicator values), each with the text
// shown for it. A code that was never set reads as "|" in every byte, its text as empty. An index
// that isn't in the list is never an error.
class ZORBY_EXPORT CMARCInfo {
public:
    // With `integerCodes` nonzero the codes are 4-byte integers, else `width` bytes each.
    CMARCInfo(int integerCodes, int width, int count);

    int GetSize() const { return count_; }
    // `code` points to as many bytes as a code is wide, here and below.
    void SetElement(int index, const void* code, std::string_view text);
    // Outside the list: 0 for integer codes, else "|" in every byte.
    void GetCodeAt(int index, void* code) const;
    // Outside the list `text` stays.
    void GetStringAt(int index, std::string& text) const;
    // The code of the first element whose text begins with `text`: 1, or 0 with `code` untouched.
    int GetCodeFromString(std::string_view text, void* code) const;
    // By text, as unsigned bytes, those that begin with a digit behind all others; among texts that
    // begin with "$", the same by the character behind it.
    void Sort();

private:
    bool Has(int index) const { return 0 <= index && index < count_; }
    unsigned char* CodeAt(std::size_t index) { return codes_.data() + index * width_; }
    const unsigned char* CodeAt(std::size_t index) const { return codes_.data() + index * width_; }

    bool integerCodes_;
    std::size_t width_;
    std::vector<unsigned char> codes_;
    int count_ = 0;
    std::vector<std::string> texts_;
};

}  // namespace zorby
