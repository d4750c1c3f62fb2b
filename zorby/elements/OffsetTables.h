#pragma once

#include <zorby/Export.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>

#include <cstdint>

namespace zorby {

// One row of a table of positions: the first and the last byte that an element takes in its field.
// A table ends with a row of -1, -1, -1. Rows may overlap, and need not be in order of bytes. A row
// of CFPUndefined is for positions that the format leaves undefined.
struct tagCFOFFSETENTRY {
    CFPart part;
    std::int32_t first;
    std::int32_t last;

    constexpr std::int32_t Width() const { return last - first + 1; }
};

// The positions are those of the MARC 21 Format for Bibliographic Data. The tables live as long as
// the program.
ZORBY_EXPORT extern const tagCFOFFSETENTRY* const kLeaderOffsets;
// Returns null for CF006None, and the table of CF006Books for a type without a table of its own.
ZORBY_EXPORT const tagCFOFFSETENTRY* OffsetsFor006Type(CFType type006);
// Returns null for CF007None, and the table of CF007Unspecified for a type without a table of its
// own.
ZORBY_EXPORT const tagCFOFFSETENTRY* OffsetsFor007Type(CFType type007);
// Returns the alternative table for a record of CF006AltDate, else the standard one.
ZORBY_EXPORT const tagCFOFFSETENTRY* OffsetsFor008(CFType type006);

// Returns the row of `part`, or null. A null table has no rows.
ZORBY_EXPORT const tagCFOFFSETENTRY* FindOffset(const tagCFOFFSETENTRY* table, CFPart part);

// Returns the format that has `part` in its range of numbers, or 0 if none has.
ZORBY_EXPORT CFType TypeOfPart(CFPart part);

// Returns how many bytes `part` takes in the table that has it, or 0 if none has.
ZORBY_EXPORT int WidthOfPart(CFPart part);

// Whether the element at position 0 of a 006 form counts. In a main record it doesn't, since the
// Leader has it.
enum class ByteZero { Included, Excluded };

// Returns whether `part` is in the range of `type`.
ZORBY_EXPORT bool PartBelongsTo(CFPart part, CFType type, ByteZero byteZero);

}  // namespace zorby
