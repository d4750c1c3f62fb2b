#pragma once

#include <string_view>

namespace quillory {

// Whether the control fields leave something unknown. Positions are those of the MARC 21 Format for
// Bibliographic Data. A field that is too short, or that the record lacks, leaves it unknown.

// The dates in 008/07-14, read by the type of date in 008/06. A date is known if it has a digit and
// is neither 0000 nor 9999. The second date counts where the type has two dates of the publication.
// Type b, dates before Christ, is never unknown: field 046 holds those dates.
bool IsDateUnknown(std::string_view field008);

// The running time in 008/18-20 of visual materials: neither a number nor "nnn", unless 008/33
// names something that does not move.
bool IsRunningTimeUnknown(std::string_view leader, std::string_view field008);

// The place of publication in 008/15-17: "xx", blanks or vertical bars.
bool IsPlaceUnknown(std::string_view field008);

}  // namespace quillory
