#pragma once

#include <quillory/cataloging/Entry.h>
#include <zorby/workforms/Template.h>

namespace quillory {

// Sets a text that new records of a workform begin with. The entry is of one subfield, and goes
// into the first field of its tag, or that of its occurrence. A field that lacks the subfield gets
// it at its end. A workform that lacks the field gets it before the first field of a higher tag,
// with the indicators that the workform or the dictionary has for it. Throws UsageError.
void SetDefaultText(const Entry& entry, zorby::CTemplate& workform);

}  // namespace quillory
