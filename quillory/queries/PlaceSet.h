#pragma once

#include <quillory/places/Place.h>
#include <quillory/queries/TextFault.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Places that are written as one: those in fields of one tag, or of many.
struct PlacePattern {
    // What is meant of each field. Its tag is the first of the tags; an X in it is any byte.
    Place place;
    unsigned lastTag = kNoTag;  // of a range of tags; kNoTag if it is none
    std::string codes = {};     // of subfields, if there are several; `place` has none then

    // Whether fields of this tag are meant.
    bool Covers(std::string_view tag) const;
    // Whether subfields are meant, and of which codes.
    bool HasCodes() const { return place.code != '\0' || !codes.empty(); }
    bool HasCode(char code) const { return place.code == code || codes.find(code) != codes.npos; }
    // Whether values are bytes of fixed meaning: indicators, and positions of control fields.
    bool IsCoded() const { return place.indicator != 0 || place.HasPositions(); }

    friend bool operator==(const PlacePattern&, const PlacePattern&) = default;
};

// A set of places in records, for commands that take "which places". It is written as parts that
// blanks or commas divide. A part is a place as ParsePlace reads it, in which
//   245ab     may have several subfield codes, each a letter or a digit,
//   6XX       may have X for any digit of the tag,
//   XXX       is all fields, but not the leader,
//   600-699   may have a range of tags, both ends among them.
struct PlaceSet {
    std::vector<PlacePattern> patterns;

    bool Empty() const { return patterns.empty(); }
    // Whether fields of this tag are meant by any of the patterns.
    bool Covers(std::string_view tag) const;

    friend bool operator==(const PlaceSet&, const PlaceSet&) = default;
};

struct PlaceSetReading {
    PlaceSet places;
    TextFault fault;  // in the text that was read; there are no places then
};

// A text of blanks and commas alone is a fault. Commas more than needed are not.
PlaceSetReading ParsePlaceSet(std::string_view text);

// As ParsePlaceSet reads it again: "245 $a, 650[2] $x, 6XX, 600-699, 245ab, 008/35-37".
std::string PlaceSetText(const PlaceSet& places);
std::string PlacePatternText(const PlacePattern& pattern);

}  // namespace quillory
