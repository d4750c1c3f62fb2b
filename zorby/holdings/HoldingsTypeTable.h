#pragma once

#include <zorby/Export.h>
#include <zorby/holdings/HoldingsID.h>
#include <zorby/holdings/HoldingsType.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace zorby {

// What is fixed for each holdings system, whatever the dictionary says of its names and elements:
// a row of HoldingsTypeTable.cpp for each.

// Numbers of elements, both ends included.
struct HoldingsIDRange {
    std::int32_t first = 0;
    std::int32_t last = -1;
};

// The elements that make up a call number, in their order; 0 after the last.
struct HoldingsCallNumber {
    std::array<EHOLDINGSID, 4> parts = {};
    std::size_t whole = 0;  // which of the parts takes a call number that comes undivided

    EHOLDINGSID Whole() const { return parts[whole]; }
};

// The two elements of an item that repeats: its first value and any further one.
struct HoldingsPair {
    EHOLDINGSID first = {};
    EHOLDINGSID second = {};
    bool sortsAfterFirst = false;  // for output, even where the second has the lower subfield code
};

// A subfield composed of several elements of a copy: "FSC@aFIC@bJUV", "Funds:Gift|Vendor:Acme|".
// Elements belong to it whose subfield in the dictionary is below 32: a place in the composite.
// Each of their values is a part, which has what the place puts before it.
struct HoldingsComposite {
    char code = 0;                             // of the subfield
    const char* opening = "";                  // before all parts
    char partStart = 0;                        // the first byte of each part; NUL for none
    std::string (*lead)(int place) = nullptr;  // before a value: "a", "Funds:". Empty for a place
                                               // that the composite lacks: its values are left out.
    char partEnd = 0;                          // the last byte of each part; NUL for none
    bool dividesValues = false;                // a text is divided at the element's delimiter
    std::int32_t carriedTag = 0;               // subfields to carry through from this tag, with the
                                               // same code, are parts too; 0 for none
};

// What stands before the value of an element that shares its subfield with other elements.
struct HoldingsLabel {
    EHOLDINGSID id = {};
    char code = 0;  // of the subfield; the value has no label in any other
    const char* text = "";
};

// A field that is known while the system is in force, without a record in the format's dictionary.
struct HoldingsLocalField {
    unsigned tag = 0;
    char code = 0;  // of its one subfield
    const char* name = "";
};

struct HoldingsTypeRow {
    EHOLDINGSTYPE type = HT_NONE;
    // The numbers of its elements. Two releases of a system share them.
    std::array<HoldingsIDRange, 2> elements = {};
    // The later release, which stored copies are taken for while it is in force; HT_NONE for none.
    EHOLDINGSTYPE successor = HT_NONE;

    HoldingsCallNumber callNumber = {};
    EHOLDINGSID barCode = {};
    EHOLDINGSID automatic = {};  // filled by itself; doesn't count as data
    // Items of up to three values, by the elements that take them.
    std::array<std::array<EHOLDINGSID, 3>, 2> triples = {};
    HoldingsPair pair = {};

    const HoldingsComposite* composite = nullptr;
    HoldingsLabel label = {};
    // The indicators of each copy's first field, by the settings: two characters or more, a blank
    // as "_". Null for blanks.
    std::string (*indicators)() = nullptr;

    // Where call number and bar code are in a record: a tag and subfield codes.
    const char* callNumberPlace = "852khim";
    const char* barCodePlace = "852p";
    // The fields that the settings add to the format's dictionary, as for
    // CMARCFormat::AddUserDefined; null for none.
    std::string (*userDefinedFields)() = nullptr;
    // The tags of a system without elements, divided by commas: copies are kept in the places that
    // userDefinedFields names. Null for a system with elements.
    const char* tagsWithoutElements = nullptr;
    std::span<const HoldingsLocalField> localFields = {};
    // Its keys in the text "HoldingsExtraSettings"; null after the last.
    std::array<const char*, 2> settings = {};

    bool Has(EHOLDINGSID id) const {
        return std::ranges::any_of(elements, [id](const HoldingsIDRange& range) {
            return range.first <= id && id <= range.last;
        });
    }
};

// All rows, by the number of the type. HT_CUSTOM has none.
ZORBY_EXPORT std::span<const HoldingsTypeRow> HoldingsTypeTable();
// The row of a type. One of HT_NONE, which has no elements and no places, for all other numbers.
ZORBY_EXPORT const HoldingsTypeRow& HoldingsRowOf(EHOLDINGSTYPE type);
// The first row with the element, or null.
ZORBY_EXPORT const HoldingsTypeRow* FindHoldingsRow(EHOLDINGSID id);

}  // namespace zorby
