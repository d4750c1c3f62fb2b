#pragma once

#include <cstdint>

namespace quillory {

// What can be wrong with what a person or a file gives. The words of each stand in FaultText.cpp,
// in the same order.
enum class FaultCode : std::uint16_t {
    kNone,

    // Files of records.
    kEmptyFile,

    // Places and coded fields.
    kNoPlace,
    kNotInDictionary,
    kNoCodedPlace,
    kNoSuchMaterial,
    kNoSuchPosition,
    kNoSuchPart,

    // New records.

    // Workforms.

    // Copies and holdings systems.

    // Checks and repairs.
    kUnknownTypeOfRecord,
    kUnknownFirstByte,
    kSecond008,
    kShifted008,
    kFieldFilledUp,
    kFieldCut,

    // Settings and arguments.
    kAlwaysUtf8,
    kNoDataFile,          // found: the reason
    kNoUserDefinedField,  // found: the list

    kEnd  // one past the last
};

}  // namespace quillory
