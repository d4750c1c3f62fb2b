#pragma once

#include <zorby/Export.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorby {

// An ordered list of keys and values that packs into one text. Each pair, including the last, is
// written as the key, "=", the value and the separator. Operations on a key use the first pair with
// that key.
class ZORBY_EXPORT CKeysNValues {
public:
    // Sets the separator, which is two backslashes at first. If it is an empty text, Set finds no
    // pairs.
    void SetSeperator(std::string_view separator);

    // Replaces all pairs by those of a packed text. A last piece without a separator is dropped. A
    // piece without "=" is a value without a key, and the same key may occur several times.
    // `allowTrailingBackslash` means that a value may end in the separator's first character: of
    // three backslashes, the first then belongs to the value.
    void Set(std::string_view text, bool allowTrailingBackslash);

    // Returns the packed text.
    std::string Get() const;

    // Replaces the value of a key, or appends a pair.
    void SetKey(std::string_view key, std::string_view value);
    void SetKey(std::string_view key, int value);

    // Returns 1, or 0 with `value` untouched if the key is absent. A number is the leading decimal
    // digits of the text, or 0 if there are none.
    int GetKey(std::string_view key, std::string& value) const;
    int GetKey(std::string_view key, int& value) const;
    int GetKey(std::string_view key, unsigned& value) const;

    void RemoveKey(std::string_view key);
    void RemoveAllKeys();
    bool IsEmpty() const;

private:
    using Pair = std::pair<std::string, std::string>;

    void ParseAndAdd(std::string_view piece);
    std::vector<Pair>::const_iterator Find(std::string_view key) const;

    std::string separator_ = "\\\\";
    std::vector<Pair> pairs_;
};

}  // namespace zorby
