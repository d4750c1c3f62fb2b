#pragma once

#include <quillory/checks/RecordInHand.h>

namespace quillory {

// Whether a record is one of UNIMARC, whose fields have the tags of MARC 21 and mean other things.
// Nothing that MARC 21 allows is taken for it.
bool IsUnimarc(const RecordInHand& record);

}  // namespace quillory
