#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The form that MARC 21 gives for characters that MARC-8 does not have, without a loss: &#xXXXX;,
// the code point in hexadecimal digits.

// Whether a text may hold a reference.
inline bool MayHoldReference(std::string_view text) {
    return text.find("&#x") != text.npos;
}

void AppendReference(char32_t codePoint, std::string& text);

// The text with its references turned into UTF-8. A reference to a control character, or to no
// character, stays.
std::string WithoutReferences(std::string_view text);

// The text with each "&" that begins such a reference written as a reference itself, so that the
// text comes back as it is.
std::string WithReferencesKept(std::string_view text);

}  // namespace quillory
