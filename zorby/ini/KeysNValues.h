#pragma once

#include <zorby/Export.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorby {

// An ordered list of keys and values that packs into one text: each pair as the key, "=", the
// value and the separator, the last pair too. Operations on a key mean the first pair with it.
class ZORBY_EXPORT CKeysNValues {
public:
    // The separator, two backslashes from the start. Without one (an empty text) Set finds no pair.
    void SetSeperator(std::string_view separator);

    // Replaces all pairs by those of a packed text. A last piece without a separator is dropped, a
    // piece without "=" is a value without a key, and the same key may come several times.
    // `allowTrailingBackslash`: a value keeps a last character that is the separator's first too,
    // so that of three backslashes the first belongs to the value.
    void Set(std::string_view text, bool allowTrailingBackslash);

    // The packed text.
    std::string Get() const;

    // Replaces the value of a key, or appends a pair.
    void SetKey(std::string_view key, std::string_view value);
    void SetKey(std::string_view key, int value);

    // Result 1, or 0 with the value untouched if the key is absent. A number is the text's leading
    // decimal digits, and 0 without any.
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
