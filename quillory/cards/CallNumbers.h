#pragma once

#include <quillory/cards/CardRecord.h>
#include <quillory/holdings/HoldingsFields.h>

#include <string>
#include <vector>

namespace quillory {

// A copy as cards and labels show it, in UTF-8.
struct ShelvedCopy {
    std::string callNumber;
    std::string barCodes;
};

// Where call numbers are looked for.
class CallNumbers {
public:
    // First in the copies of the holdings system in force, whose dictionary is loaded; and if a
    // record has none, at the customary places of call numbers. With `places`, such as
    // "090ab, 082a", only there; the first place that a record has counts.
    explicit CallNumbers(const PlaceSet& places);

    // The copies of a record that have a call number; if there are none, one with the call number
    // of the title, which may be empty.
    std::vector<ShelvedCopy> Of(const Record& record, const CardRecord& texts, ValueReader& reader);

private:
    HoldingsSystem system_;
    HoldingsFields copies_;
    bool readsCopies_;
    PlaceSet places_;
};

// The lines of a call number, broken as the library breaks them for a spine; none of an empty one.
std::vector<std::string> CallNumberLines(const std::string& callNumber);

}  // namespace quillory
