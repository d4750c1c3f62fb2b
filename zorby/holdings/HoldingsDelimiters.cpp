#include <zorby/holdings/HoldingsDelimiters.h>

namespace zorby {

const char kcHoldingsDelimiter = '|';
const char kcFollettSubXDelimiter = '@';
const char kcFollettCategoryDelimiter = ',';
const char* const kpFollettSubXMarker = "FSC";

}  // namespace zorby
