#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// A menu: a fixed number of codes (tags, subfield codes, indicator values), each with the text that
// is shown for it. A code that was never set reads as "|" in every byte, and its text as empty. An
// index outside the list is never an error.
class ZORBY_EXPORT CMARCInfo {
public:
    // If `integerCodes` is nonzero, the codes are 4-byte integers, else they have `width` bytes
    // each.
    CMARCInfo(int integerCodes, int width, int count);

    int GetSize() const;
    // Here and below, `code` points to as many bytes as a code has.
    void SetElement(int index, const void* code, std::string_view text);
    // Outside the list an integer code is 0, and any other code is "|" in every byte.
    void GetCodeAt(int index, void* code) const;
    // Outside the list `text` stays as it is.
    void GetStringAt(int index, std::string& text) const;
    // Gives the code of the first element whose text begins with `text`. Returns 1, or 0 with
    // `code` untouched.
    int GetCodeFromString(std::string_view text, void* code) const;
    // Sorts by text, as unsigned bytes. Texts that begin with a digit come after all others. If two
    // texts begin with "$", the character after it decides which of them has a digit.
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
