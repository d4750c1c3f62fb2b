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

// One field of a record, and what its elements are tested against. The default is asked for only
// where an element needs it; an element that it doesn't reach keeps its value.
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

// Goes through the rows of the table in order, overwrites each invalid element, and tells the
// callback, unless it is null. A row that goes beyond the buffer is left alone.
void CheckPartsAgainstDefaults(const RepairTask& task);

}  // namespace zorby
