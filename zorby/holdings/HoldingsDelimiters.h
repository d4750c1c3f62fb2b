#pragma once

#include <zorby/Export.h>

namespace zorby {

ZORBY_EXPORT extern const char kcHoldingsDelimiter;         // joins the values of a composite text
ZORBY_EXPORT extern const char kcFollettSubXDelimiter;      // before each value in Follett's $x
ZORBY_EXPORT extern const char kcFollettCategoryDelimiter;  // between Follett's categories
ZORBY_EXPORT extern const char* const kpFollettSubXMarker;  // opens Follett's $x

}  // namespace zorby
