#pragma once

#include <quillory/coded/CodeLists.h>

#include <string>
#include <string_view>

namespace quillory {

// Whether the format allows this value of an element, or once did where the element is still
// defined.
bool IsAllowed(const CodeLists& lists, const Element& element, std::string_view value);

// The value with those codes, or that value, put back from `before` that the format allows.
std::string Protected(const CodeLists& lists, const Element& element, std::string_view before,
                      std::string_view after);

// What a value says, in UTF-8; several codes with "; " between them. Empty if nothing is known.
std::string ValueText(const CodeLists& lists, const Element& element, std::string_view value);

}  // namespace quillory
