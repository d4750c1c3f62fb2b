#pragma once

#include <zorby/Export.h>

namespace zorby {

ZORBY_EXPORT extern const char kcHoldingsDelimiter;         // joins the values of a composite text
ZORBY_EXPORT extern const char kcFollettSubXDelimiter;      // before each value in Follett's $x
ZORBY_EXPORT extern const char kcFollettCategoryDelimiter;  // between Follett's categories
ZORBY_EXPORT extern const char* const kpFollettSubXMarker;  // opens Follett's $x

// The place of an element in Follett's $x and this make its letter: place 1 is "a".
inline constexpr int kFollettLetterOffset = 96;
// Opens a fund that goes to $x by itself.
inline constexpr const char* kpHoldingsFundLabel = "FUND: ";
// What stands before a value in Alexandria's $1, such as "Funds:", by the element's place there, 9
// to 13. Null for other places.
ZORBY_EXPORT const char* AlexandriaLabel(int place);

}  // namespace zorby
