#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/queries/PlaceSet.h>

#include <cstdint>

namespace quillory {

enum class MergeMode : std::uint8_t {
    Add,      // what the record does not have, byte for byte
    Replace,  // all fields of a tag that the other record has
    Missing   // only fields of tags that the record lacks
};

// Puts the fields of `other` that `which` covers into `record`; both are in one character set. A
// field goes after those of its tag, or else after the last one whose tag is not greater. Other
// fields stay in their order. Result: whether anything changed; if not, the record keeps its bytes.
bool MergeFields(Record& record, const Record& other, const PlaceSet& which, MergeMode mode);

}  // namespace quillory
