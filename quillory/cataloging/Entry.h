#pragma once

#include <quillory/places/LineColumn.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What is said of a new record that can't be done. The text names the place in the record and the
// reason.
class EntryError : public std::runtime_error {
public:
    EntryError(std::string_view place, std::string_view reason)
        : std::runtime_error(std::string(place) + ": " + std::string(reason)) {}
    EntryError(const EntryError& error, LineColumn where)
        : std::runtime_error(error.what()), where_(where) {}

    LineColumn Where() const { return where_; }

private:
    LineColumn where_;
};

struct SubfieldText {
    char code = 0;
    std::string text;  // UTF-8
};

enum class EntryKind {
    Subfield,      // "245a": one subfield, of the field that is being filled
    Field,         // subfields of one field, in whatever order
    WrittenField,  // "245": indicators and subfields exactly as they are to stand
    ControlField,  // "001": all of it
    Positions,     // "008/35-37": a part of a control field or of the leader
};

// One statement about a new record.
struct Entry {
    EntryKind kind = EntryKind::Subfield;
    std::string place;       // as it was written, for messages
    unsigned tag = 0;        // 1 to 999; 0 for the leader
    int occurrence = 0;      // "[2]": the second field of the tag; 0 if not told
    int first = 0;           // positions
    int last = 0;            // as first
    std::string indicators;  // two characters, or empty if not told
    std::vector<SubfieldText> subfields;
    std::string text;  // of a control field or of positions
    LineColumn where;  // in the file that says it
};

// Places are such as
//   245a  245[2]a  one subfield; without text, or of blanks, it takes away what the workform has
//   245   650[2]   a whole field as "10$aTitle /$cName.", with {dollar} for a dollar sign in text
//   001   007[2]   a whole control field; without text it takes away what the workform has
//   leader/17  008/35-37  007[2]/04
//   language  country   the codes of 008/35-37 and 008/15-17
// Throws EntryError for a place that is none, and for text that no record holds.
Entry ReadEntry(std::string_view place, std::string_view text);

// An entry of the kind Field, to be given its subfields. Throws EntryError unless `place` is the
// tag of a data field, with or without an occurrence.
Entry BeginField(std::string_view place);
// Throws EntryError.
void SetIndicators(Entry& field, std::string_view indicators);
void AddSubfield(Entry& field, std::string_view code, std::string_view text);

}  // namespace quillory
