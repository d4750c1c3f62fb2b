#pragma once

#include <quillory/exchange/Record.h>

#include <string>
#include <string_view>

namespace quillory {

// What the data fields of a record say that coded fields say as well. Keeps a pointer to the
// record. Codes are in small letters, and those of countries are three bytes wide; a text is empty
// where the record says nothing.
class RecordEvidence {
public:
    explicit RecordEvidence(const Record& record) : record_(&record) {}

    // The first code of the first 041 $a of MARC codes, which 008/35-37 repeats.
    std::string Language() const;
    // The first code of 044 $a, which 008/15-17 repeats.
    std::string Country() const;
    // Whether all carriers that the record names (338 $b, of RDA) are online resources.
    bool IsOnline() const;
    bool NamesPlace() const;     // of publication, in 260 or 264 $a
    bool NamesLanguage() const;  // in 041 or 546

    // The language of the record's first 008, as it stands there; empty without one.
    std::string_view Language008() const;

private:
    bool Has(std::string_view tag) const;

    const Record* record_;
};

}  // namespace quillory
