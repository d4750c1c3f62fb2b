#pragma once

#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/text/TagArray.h>

namespace zorby {

// Fields that are known without a record in the dictionary, because the holdings system in force
// has them.

// Appends their tags.
void AppendLocalTags(CTagArray& tags);
// Null for any other tag.
const HoldingsLocalField* FindLocalField(unsigned tag);

}  // namespace zorby
