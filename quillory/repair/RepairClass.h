#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillory {

// What kind of change a repair is.
enum class RepairClass : std::uint8_t {
    Case,
    NationalCode,
    FromRecord,
    ObsoleteForm,
    NotCoded,
    UnknownValue,
    Undefined,
    Structure,
    CharacterSet,
    Length,
    Repeated,
    Library,
};

struct RepairClassRow {
    RepairClass repairClass;
    std::string_view name;  // in messages, reports and options
    std::string_view text;  // what such a repair does
};

// Each class once, in the order of their numbers.
const std::array<RepairClassRow, 12>& RepairClasses();
std::string_view NameOf(RepairClass repairClass);

// Which repairs are wanted.
struct RepairSelection {
    std::vector<RepairClass> only = {};  // empty for all classes
    std::vector<RepairClass> skip = {};

    bool Has(RepairClass repairClass) const;
};

}  // namespace quillory
