#pragma once

#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/text/TagArray.h>

namespace zorby {

// Fields that are known without a record in the dictionary because the holdings system in force has
// them.

// Appends the tags of these fields.
void AppendLocalTags(CTagArray& tags);
// Returns null for any other tag.
const HoldingsLocalField* FindLocalField(unsigned tag);

}  // namespace zorby
