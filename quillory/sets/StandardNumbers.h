#pragma once

#include <string>
#include <string_view>

namespace quillory {

// Standard numbers in the one way in which equal ones are equal texts. What is no number of the
// kind gives its letters and digits, in small letters; an empty text is none.

// An ISBN as thirteen digits, whether it came with ten or thirteen, hyphens, and words after it
// (ISO 2108). One whose check digit is wrong stays as it is.
std::string NormalIsbn(std::string_view text);
// An ISSN without its hyphen (ISO 3297).
std::string NormalIssn(std::string_view text);
// A control number of another system, "(OCoLC)ocm00012345": the system in small letters, and of
// OCLC's numbers the digits alone, without zeros before them.
std::string NormalSystemNumber(std::string_view text);
// A number of the Library of Congress, without blanks and what stands after a slash; the part after
// a hyphen has six digits (LCCN Namespace).
std::string NormalLccn(std::string_view text);

}  // namespace quillory
