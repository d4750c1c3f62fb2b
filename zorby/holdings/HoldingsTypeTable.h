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

// What is fixed for each holdings system; the dictionary has its names and elements. Each system
// has a row in HoldingsTypeTable.cpp.

// Numbers of elements, including both ends.
struct HoldingsIDRange {
    std::int32_t first = 0;
    std::int32_t last = -1;
};

// The elements that make up a call number, in their order, with zeros after the last one.
struct HoldingsCallNumber {
    std::array<EHOLDINGSID, 4> parts = {};
    std::size_t whole = 0;  // index of the part that takes a call number that isn't divided

    EHOLDINGSID Whole() const { return parts[whole]; }
};

// The two elements of an item that repeats: one for its first value, one for all further values.
struct HoldingsPair {
    EHOLDINGSID first = {};
    EHOLDINGSID second = {};
    bool sortsAfterFirst = false;  // in output, even if the second one has the lower subfield code
};

// A subfield composed of several elements of a copy, such as "FSC@aFIC@bJUV" or
// "Funds:Gift|Vendor:Acme|". It takes the elements whose subfield in the dictionary is below 32;
// that number is a place in the composite. Each value of such an element is a part, and begins with
// the lead of its place.
struct HoldingsComposite {
    char code = 0;             // of the subfield
    const char* opening = "";  // before all parts
    char partStart = 0;        // the first byte of each part; NUL for none
    // Returns the lead of a place, such as "a" or "Funds:". It is empty for a place that the
    // composite doesn't have: values of that place are left out.
    std::string (*lead)(int place) = nullptr;
    char partEnd = 0;            // the last byte of each part; NUL for none
    bool dividesValues = false;  // a text is divided at the delimiter of the element
    // Holds of this tag with the same code are parts too; 0 for none.
    std::int32_t carriedTag = 0;
};

// The text before the value of an element that shares its subfield with other elements.
struct HoldingsLabel {
    EHOLDINGSID id = {};
    char code = 0;  // of the subfield; in any other subfield the value has no label
    const char* text = "";
};

// A field that is known while the system is in force, although the format's dictionary has no
// record of it.
struct HoldingsLocalField {
    unsigned tag = 0;
    char code = 0;  // of its one subfield
    const char* name = "";
};

// The systems whose settings have the same keys, and one dialog.
enum class HoldingsGroup : std::int32_t { kBasic, kDynix, kLwlp, kFollettUnison, kMandarin };

struct HoldingsTypeRow {
    EHOLDINGSTYPE type = HT_NONE;
    // The numbers of the system's elements. Two releases of a system share them.
    std::array<HoldingsIDRange, 2> elements = {};
    // The later release. While it is in force, stored copies count as copies of that release.
    // HT_NONE if there is none.
    EHOLDINGSTYPE successor = HT_NONE;

    HoldingsCallNumber callNumber = {};
    EHOLDINGSID barCode = {};
    EHOLDINGSID automatic = {};  // filled automatically; doesn't count as data
    // Items of up to three values: the elements that take the first, the second and the third
    // value.
    std::array<std::array<EHOLDINGSID, 3>, 2> triples = {};
    HoldingsPair pair = {};

    const HoldingsComposite* composite = nullptr;
    HoldingsLabel label = {};
    // Returns the indicators of the first field of each copy, from the settings: two characters or
    // more, with "_" for a blank. Null if both are blank.
    std::string (*indicators)() = nullptr;

    // The places of call number and bar code in a record: a tag with subfield codes.
    const char* callNumberPlace = "852khim";
    const char* barCodePlace = "852p";
    // Returns the fields that the settings add to the format's dictionary, as
    // CMARCFormat::AddUserDefined takes them. Null if there are none.
    std::string (*userDefinedFields)() = nullptr;
    // The tags of a system without elements, separated by commas. Such a system keeps copies in the
    // places that userDefinedFields returns. Null for a system with elements.
    const char* tagsWithoutElements = nullptr;
    std::span<const HoldingsLocalField> localFields = {};
    HoldingsGroup group = HoldingsGroup::kBasic;
    // The system's keys in the text "HoldingsExtraSettings", with nulls after the last one.
    std::array<const char*, 2> settings = {};

    bool Has(EHOLDINGSID id) const {
        return std::ranges::any_of(elements, [id](const HoldingsIDRange& range) {
            return range.first <= id && id <= range.last;
        });
    }
};

// Returns all rows, in order of the types' numbers. There is no row for HT_CUSTOM.
ZORBY_EXPORT std::span<const HoldingsTypeRow> HoldingsTypeTable();
// Returns the row of a type. For a number without a row, returns one of HT_NONE, which has no
// elements and no places.
ZORBY_EXPORT const HoldingsTypeRow& HoldingsRowOf(EHOLDINGSTYPE type);
// Returns the first row that has the element, or null.
ZORBY_EXPORT const HoldingsTypeRow* FindHoldingsRow(EHOLDINGSID id);

}  // namespace zorby
