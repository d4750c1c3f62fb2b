#pragma once

#include <string_view>

namespace quillory {

// What the control fields leave unknown. Positions are those of the MARC 21 Format for
// Bibliographic Data; a field that is too short, or not there, says nothing.

// 008/07-14 by the type of date in 008/06. A date counts with any digit but in 0000 and 9999: the
// first one, or the second where the type has two dates of the publication. Dates before Christ
// (type b) are told in field 046.
bool IsDateUnknown(std::string_view field008);

// 008/18-20 of visual materials: no number and not "nnn", in what 008/33 doesn't say to be still.
bool IsRunningTimeUnknown(std::string_view leader, std::string_view field008);

// 008/15-17: "xx", blanks or vertical bars.
bool IsPlaceUnknown(std::string_view field008);

}  // namespace quillory
