#pragma once

#include <quillory/sets/KeyPlaces.h>
#include <quillory/sets/PlaceText.h>

#include <string>
#include <vector>

namespace quillory {

// The keys by which records are found to be the same. A way to match is a text of places: records
// match if they have one and the same key. Of one place each value is a key: a control number as it
// stands, a standard number (010, 020, 022, 035) in its normal form, any other text without case,
// diacritics and punctuation. Of several places the first value of each counts, and records without
// one of them have no key. The title goes with the type of record, the author and the date.
class MatchKeys {
public:
    // Throws UsageError for what is no place, and for no way at all.
    MatchKeys(const std::vector<std::string>& ways, Charset charset);

    // Replaces `keys` by those of a record, way after way, each once. A key is as a person reads
    // it, "020 9780306406157". None if the record lacks all of the places.
    void Of(const Record& record, std::vector<std::string>& keys);

private:
    struct Way {
        std::string name;
        std::vector<KeyPlace> places;
    };

    std::vector<std::string> ValuesOf(const Record& record, const KeyPlace& place);
    std::string TogetherOf(const Record& record, const Way& way);
    std::string TitleOf(const Record& record);

    std::vector<Way> ways_;
    PlaceTexts texts_;
};

}  // namespace quillory
