#pragma once

#include <quillory/checks/CodedFields.h>

namespace quillory {

// Has the library repair the fields, each in its `after`, which has the length of its format, and
// any bytes. The Leader must be that of a bibliographic record, and the standard workforms in
// force. The Leader and the 008 make the main material with the first 007 that goes with them. Each
// further 006 is an additional material with the first 007 left that goes with it; so is each 007
// left after that. The 007 of a microform is repaired as that of a book in this microform.
void RepairByLibrary(CodedFields& fields);

}  // namespace quillory
