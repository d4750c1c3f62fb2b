#pragma once

#include <zorby/holdings/InfoAboutHoldingsField.h>

#include <string_view>

namespace quillory {

// Whether a value can stand in its element. In a subfield that a system composes of several
// elements, no value can have the character that divides them: the rest of it would be read as
// another element.
bool FitsItsElement(const zorby::CInfoAboutHoldingsField& element, std::string_view value);

}  // namespace quillory
