#pragma once

#include <zorby/format/DisplayOptions.h>

#include <string>

namespace quillory {

// Names in the dictionary that is in force, in UTF-8. What the dictionary does not know has the
// name that the library gives it.
std::string FieldName(unsigned tag, zorby::EDISPLAYOPTIONS display);
std::string SubfieldName(unsigned tag, char code, zorby::EDISPLAYOPTIONS display);

// An indicator as it stands in the library's own data, with "#" for a blank.
std::string IndicatorText(char indicator);

}  // namespace quillory
