#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The lossless form that MARC 21 publishes for characters outside MARC-8: &#xXXXX;, the code point
// in hexadecimal digits.

// Whether a text may hold a reference.
inline bool MayHoldReference(std::string_view text) {
    return text.find("&#x") != text.npos;
}

void AppendReference(char32_t codePoint, std::string& text);

// The text with its references turned into UTF-8. Those to control characters, and to what is no
// character, stay.
std::string WithoutReferences(std::string_view text);

// The text with each "&" that begins such a reference turned into a reference itself, so that it is
// not taken for one later.
std::string WithReferencesKept(std::string_view text);

}  // namespace quillory
