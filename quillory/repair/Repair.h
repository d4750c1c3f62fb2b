#pragma once

#include <quillory/coded/Elements.h>
#include <quillory/faults/Fault.h>
#include <quillory/places/Place.h>

#include <cstdint>
#include <string>

namespace quillory {

enum class RepairKind : std::int32_t {
    Replaced,  // an element has another value now
    Kept,    // an element keeps a value that the library would replace, since the format allows it
    Length,  // a field has the length of its format now
    Left,    // a field, or the whole record, stays as it was, since nothing says what is right
};

// What became of one element of a record, of one field, or of the record as a whole.
struct Repair {
    RepairKind kind = RepairKind::Replaced;
    Place place = {};
    const Element* element = nullptr;  // null if the repair concerns a field or the record
    std::string before = {};           // the bytes as they were
    std::string after =
        {};  // the bytes as they are; of a value kept, those that the library would put
    FaultCode fault = {};  // why a length changed, or why something was left
};

// What was wrong, in words. Only for a changed length and for what was left.
Fault FaultOf(const Repair& repair);

}  // namespace quillory
