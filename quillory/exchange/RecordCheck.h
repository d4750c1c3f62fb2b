#pragma once

#include <quillory/exchange/Record.h>

namespace quillory {

// Looks at a record that a form has given for what no form can hold: ends of fields and records
// within it, delimiters without a code, bytes that no tag has. False with reason and tag in the
// item.
bool CanBeWritten(Item& item);

}  // namespace quillory
