#pragma once

#include <zorby/text/TagArray.h>

namespace zorby {

// Fields that are known without a record in the dictionary while the holdings in force are
// Alexandria's. Each has one subfield.
inline constexpr char kAlexandriaSubfield = 'a';

// Appends their tags, or nothing with other holdings.
void AppendAlexandriaTags(CTagArray& tags);

// What such a field and its subfield are called; null for any other tag, and with other holdings.
const char* AlexandriaName(unsigned tag);

}  // namespace zorby
