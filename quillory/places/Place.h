#pragma once

#include <quillory/places/Tag.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Bytes of a record for a person to see: those that could steer a terminal, and all beyond ASCII,
// are question marks.
std::string Printable(std::string_view bytes);

// "0x1F".
std::string HexText(char byte);

// Where in a record something is: the leader, a field, and in it an indicator, a subfield, or
// positions. All zeros stand for the record as a whole.
struct Place {
    std::array<char, kTagSize> tag{};  // "LDR" for the leader; a record may have tags with letters
    std::uint32_t occurrence = 0;      // of the tag, from 1; 0 if the place does not say which
    char material = '\0';        // letter by which an 006, 007 or 008 is to be read; NUL for any
    char code = '\0';            // of a subfield
    std::uint8_t indicator = 0;  // 1 or 2
    std::int32_t first = -1;     // positions, from 0; -1 if the place has none
    std::int32_t last = -1;

    static Place OfRecord() { return {}; }
    static Place OfLeader();
    // `tag` is taken as it stands, up to three bytes of it.
    static Place OfField(std::string_view tag, std::uint32_t occurrence = 0) {
        Place place;
        for (std::size_t i = 0; i < kTagSize && i < tag.size(); ++i) place.tag[i] = tag[i];
        place.occurrence = occurrence;
        return place;
    }
    static Place OfField(unsigned tag, std::uint32_t occurrence = 0);

    // The leader or field alone.
    Place Field() const;
    Place Subfield(char subfieldCode) const {
        Place place = *this;
        place.code = subfieldCode;
        return place;
    }
    Place Indicator(int which) const {
        Place place = *this;
        place.indicator = static_cast<std::uint8_t>(which);
        return place;
    }
    Place Positions(int from, int to) const {
        Place place = *this;
        place.first = from;
        place.last = to;
        return place;
    }

    std::string_view Tag() const { return {tag.data(), IsRecord() ? 0 : tag.size()}; }
    unsigned Number() const { return TagNumber(Tag()); }  // kNoTag if the tag is no number
    bool IsRecord() const { return tag[0] == '\0'; }
    bool IsLeader() const;
    // The leader and 001 to 009, which have positions and no subfields.
    bool IsControl() const;
    bool HasPositions() const { return first >= 0; }

    friend bool operator==(const Place&, const Place&) = default;
};

// The place as people write it, so that ParsePlace reads it again:
//   245   245/1   245 $a   650[2] $x   001   008/35-37   007[2]/04   006m/05   leader/06
// An occurrence of 1 goes without saying. Empty for the record as a whole. Bytes are Printable.
std::string PlaceText(const Place& place);

// "18-21", "06".
std::string PositionsText(int first, int last);

// Reads what PlaceText writes; a subfield also as 245a or 245$a, the leader also as ldr, in any
// case, and a position with or without leading zeros. Nothing for a text that is no place: a tag of
// three digits is from 001 on, occurrences count from 1, only control fields have positions, and
// only data fields have indicators and subfields.
std::optional<Place> ParsePlace(std::string_view text);

}  // namespace quillory
