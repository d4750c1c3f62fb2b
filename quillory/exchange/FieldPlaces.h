#pragma once

#include <quillory/faults/Fault.h>
#include <zorby/record/CommFormat.h>

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// The places of fields of one record, asked for one after the other: as PlaceAfter, but no field is
// counted twice.
class FieldPlaces {
public:
    // The place of a field that comes after these, which are those of the last call and any that
    // have come since.
    Place After(std::span<const zorby::CommFormatField> fields, std::string_view tag);
    // For another record.
    void Clear();

private:
    std::map<std::string, std::uint32_t, std::less<>> counts_;  // by tag
    std::size_t counted_ = 0;
};

}  // namespace quillory
