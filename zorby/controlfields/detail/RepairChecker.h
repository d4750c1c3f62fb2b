#pragma once

#include <zorby/controlfields/ReplacedPartCallback.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/elements/OffsetTables.h>

#include <functional>
#include <span>
#include <string>

namespace zorby {

inline constexpr MaterialType kAnyMaterial = static_cast<MaterialType>(0);

enum class FirstRow { Tested, Skipped };

// One field of a record, and what its elements are tested against. `defaultText` is called only if
// an element needs it. An element that the default text doesn't reach keeps its value.
struct RepairTask {
    std::function<std::string()> defaultText;
    const tagCFOFFSETENTRY* table;
    std::span<char> buffer;
    ReplacedPartCallback callback;
    CFType type006;
    void* context;
    MaterialType material;
    bool isMicroform;
    FirstRow firstRow;
};

// Goes through the rows of the table in order, overwrites each invalid element and calls the
// callback, unless that is null. A row that goes beyond the buffer is skipped.
void CheckPartsAgainstDefaults(const RepairTask& task);

}  // namespace zorby
