#pragma once

#include <zorby/Export.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>

#include <cstdint>

namespace zorby {

// One row of a table of positions: the bytes, first to last inclusive, that an element takes in its
// field. A table ends with a row of -1, -1, -1. Rows may overlap, and need not be in byte order; a
// row of CFPUndefined marks positions that the format leaves undefined.
struct tagCFOFFSETENTRY {
    CFPart part;
    std::int32_t first;
    std::int32_t last;

    constexpr std::int32_t Width() const { return last - first + 1; }
};

// Positions as in the MARC 21 Format for Bibliographic Data. The tables live as long as the
// program.
ZORBY_EXPORT extern const tagCFOFFSETENTRY* const kLeaderOffsets;
// Null for CF006None; the table of CF006Books for a type that has none of its own.
ZORBY_EXPORT const tagCFOFFSETENTRY* OffsetsFor006Type(CFType type006);
// Null for CF007None; the table of CF007Unspecified for a type that has none of its own.
ZORBY_EXPORT const tagCFOFFSETENTRY* OffsetsFor007Type(CFType type007);
// The alternative table for a record of CF006AltDate, else the standard one.
ZORBY_EXPORT const tagCFOFFSETENTRY* OffsetsFor008(CFType type006);

// The row of `part`, or null; a null table has no rows.
ZORBY_EXPORT const tagCFOFFSETENTRY* FindOffset(const tagCFOFFSETENTRY* table, CFPart part);

// The format whose range of numbers holds `part`; 0 if none does.
ZORBY_EXPORT CFType TypeOfPart(CFPart part);

// Bytes that `part` takes in the table that holds it; 0 if none does.
ZORBY_EXPORT int WidthOfPart(CFPart part);

// A main record has position 0 of its 006 form in the Leader, so there the element doesn't count.
enum class ByteZero { Included, Excluded };

// Whether `part` lies in the range of `type`.
ZORBY_EXPORT bool PartBelongsTo(CFPart part, CFType type, ByteZero byteZero);

}  // namespace zorby
