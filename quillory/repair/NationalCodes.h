#pragma once

#include <string_view>

namespace quillory {

// Codes that people write where MARC has its own. All are in small letters; the result is empty for
// a code that is not known.

// The MARC code of a language, by the terminology code of ISO 639-2: "ger" for "deu".
std::string_view MarcLanguageOf(std::string_view terminology);

// The MARC code of a country, three bytes wide, by its code of two or three letters of ISO 3166-1:
// "gw " for "de" and for "deu". Countries that MARC divides have the code of the whole.
std::string_view MarcCountryOf(std::string_view iso);

}  // namespace quillory
