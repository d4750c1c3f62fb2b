#pragma once

#include <quillory/queries/PlaceSet.h>
#include <quillory/queries/Values.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

struct CardSubfield {
    char code = '\0';
    std::string text;
};

// A data field in UTF-8, for reading alone.
struct CardField {
    std::string tag;
    char first = ' ';  // indicators
    char second = ' ';
    std::vector<CardSubfield> subfields;
    // The same in another script (field 880), or none.
    std::vector<CardField> other = {};

    // The text of the first subfield of this code; empty if there is none.
    std::string_view Text(char code) const;
};

// What of a record comes on cards and labels: its data fields in UTF-8, each with what is said of
// it in another script. A field 880 that belongs to no other stands as a field of its own.
class CardRecord {
public:
    CardRecord(const Record& record, ValueReader& reader);

    const std::vector<CardField>& Fields() const { return fields_; }
    const std::string& ControlNumber() const { return controlNumber_; }
    // Whether punctuation stands in the fields (leader/18), and none has to be set between them.
    bool HasPunctuation() const { return hasPunctuation_; }

    // The first field of a tag, or null.
    const CardField* Find(std::string_view tag) const;
    // The texts at a place, one for each field, with blanks between subfields.
    std::vector<std::string> TextsAt(const PlacePattern& pattern) const;

private:
    void Link(CardField alternate);

    std::vector<CardField> fields_;
    std::string controlNumber_;
    bool hasPunctuation_ = false;
};

}  // namespace quillory
