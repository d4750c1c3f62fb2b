#pragma once

#include <zorby/format/DisplayOptions.h>

#include <string>
#include <string_view>

namespace zorby {

// Gives a name with its code as the option says. An unknown option counts as EDO_NameOnly.
void DisplayText(EDISPLAYOPTIONS option, std::string_view name, std::string_view code,
                 std::string& text);

}  // namespace zorby
