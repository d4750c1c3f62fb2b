#pragma once

#include <quillory/faults/Errors.h>
#include <quillory/places/LineColumn.h>
#include <quillory/places/Place.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What is said of a new record can't be done.
class EntryError : public UsageError {
public:
    // `where` is the place in the file that says it, if a file does.
    explicit EntryError(Fault fault, std::optional<LineColumn> where = {})
        : UsageError(std::move(fault)), where_(where) {}

    const std::optional<LineColumn>& Where() const { return where_; }

private:
    std::optional<LineColumn> where_;
};

struct SubfieldText {
    char code = 0;
    std::string text;  // UTF-8
};

enum class EntryKind {
    Subfield,      // "245a": one subfield, of the field that is being filled
    Field,         // subfields of one field, in any order
    WrittenField,  // "245": indicators and subfields exactly as they are to stand
    ControlField,  // "001": all of it
    Positions,     // "008/35-37": a part of a control field or of the leader
};

// One statement about a new record.
struct Entry {
    EntryKind kind = EntryKind::Subfield;
    Place place;
    std::string indicators;  // two characters, or empty where the workform gives them
    std::vector<SubfieldText> subfields;
    std::string text;                 // of a control field or of positions
    std::optional<LineColumn> where;  // in the file that says it

    unsigned Tag() const { return place.Number(); }
};

// Places are those of ParsePlace, and two names:
//   245a  245[2]a  one subfield; an empty or blank text takes away that of the workform
//   245   650[2]   a whole field as "10$aTitle /$cName.", with {dollar} for a dollar sign in text
//   001   007[2]   a whole control field; an empty text takes away that of the workform
//   leader/17  008/35-37  007[2]/04
//   language  country   the codes of 008/35-37 and 008/15-17
// Throws EntryError for any other place, and for text that a record can't hold.
Entry ReadEntry(std::string_view place, std::string_view text);
Entry MakeEntry(const Place& place, std::string_view text);

// An entry of the kind Field, to be given its subfields. Throws EntryError unless `place` is the
// tag of a data field, with or without an occurrence.
Entry BeginField(std::string_view place);
// Throws EntryError.
void SetIndicators(Entry& field, std::string_view indicators);
void AddSubfield(Entry& field, std::string_view code, std::string_view text);

}  // namespace quillory
