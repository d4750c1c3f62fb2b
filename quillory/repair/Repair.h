#pragma once

#include <quillory/coded/Elements.h>
#include <quillory/faults/Fault.h>
#include <quillory/places/Place.h>
#include <quillory/repair/RepairClass.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

enum class RepairKind : std::int32_t {
    Replaced,  // an element has another value now
    Length,    // a field has the length of its format now
    Left,      // a value, a field, or the whole record stays, since nothing says what is right
};

// What became of one element of a record, of one field, or of the record as a whole.
struct Repair {
    RepairKind kind = RepairKind::Replaced;
    RepairClass repairClass = RepairClass::UnknownValue;
    Place place = {};
    const Element* element = nullptr;  // null if the repair concerns a field or the record
    std::string before = {};           // the bytes as they were
    std::string after = {};            // the bytes as they are
    std::string_view source = {};      // what gave the new value, where neither the old value
                                       // nor the format alone did: "041 $a"
    FaultCode fault = {};              // why a length changed, or why something was left
};

// What was wrong, in words. Only for a changed length and for what was left.
Fault FaultOf(const Repair& repair);

}  // namespace quillory
