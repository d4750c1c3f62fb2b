#pragma once

#include <quillory/places/Place.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// In FaultCode.h, which only those include who name a code.
enum class FaultCode : std::uint16_t;

// One thing that is wrong, as a value: so that faults can be counted, grouped and shown in a
// window, and so that their words stand in one table. Texts are UTF-8, or bytes of a record.
struct Fault {
    FaultCode code = {};
    Place place = {};          // in the record concerned; the record as a whole if it has none
    std::string found = {};    // what is there; empty where the words need no more
    std::string allowed = {};  // what may be there

    explicit operator bool() const { return code != FaultCode{}; }
};

// A name that never changes, for programs: "empty-file".
std::string_view FaultId(FaultCode code);

// The words without what one fault has of its own: faults with the same heading belong together.
std::string FaultHeading(FaultCode code);

// The words of a fault, without its place.
std::string FaultReason(const Fault& fault);

// The words of a fault after its place: "245 $a: ...".
std::string FaultText(const Fault& fault);

}  // namespace quillory
