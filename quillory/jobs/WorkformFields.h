#pragma once

#include <quillory/exchange/Record.h>
#include <zorby/workforms/Template.h>

#include <string_view>
#include <vector>

namespace quillory {

// Whether the fields of a tag name one record, and are not those of another like it.
bool NamesOneRecord(std::string_view tag);

// The standard workform of what a record describes, on which one for records like it rests.
const zorby::CTemplate& StandardFor(const Record& record);

// New records of the workform begin with the coded fields of this record, which is in UTF-8, and
// with its data fields and their texts. Fields that name one record don't belong to it; the result
// is which others a workform has no room for. What the record lacks of an 008 is that of `base`.
// Throws UsageError for a text that a workform can't hold.
std::vector<Place> FillWorkform(const Record& record, const zorby::CTemplate& base,
                                zorby::CTemplate& workform);

}  // namespace quillory
