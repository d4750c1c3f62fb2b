#pragma once

#include <cstdint>

namespace zorby {

// What was found on a record. Findings below 110 come from the repair of imported records; these
// tell that a 007 is missing, and for which kind of item.
enum E_ERROR_CODE : std::int32_t {
    EC_No007Microfilm = 90,
    EC_No007Microfiche = 91,
    EC_No007Microopaque = 92,
    EC_No007Filmslip = 99,
    EC_No007Slide = 100,
    EC_No007Transparency = 101,
    EC_No007OtherProjected = 102,
    EC_No007Electronic = 106,
};

}  // namespace zorby
