#pragma once

#include <quillory/sets/KeyPlaces.h>
#include <quillory/sets/PlaceText.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Appends the sort key of a text by the library's rules (zorby/charset/Compare.h), for any script:
// what the library's code lacks comes after all that it has, in the order of Unicode. The key has
// no zero bytes.
void AppendTextKey(std::string_view utf8, std::string& key);

// Appends a text that compares, byte by byte, as the first number in `text` does: "v. 12", "-3.5".
// False if there is none.
bool AppendNumberKey(std::string_view text, std::string& key);

struct SortOrder {
    std::vector<KeyPlace> places;  // records that are equal in one are sorted by the next
    bool isNumeric = false;
    bool isReverse = false;
};

// Keys of records: whatever order they are to be in, it is that of the bytes of their keys. Records
// that lack a place come after the others, in any order.
class RecordSortKeys {
public:
    RecordSortKeys(SortOrder order, Charset charset) : order_(std::move(order)), texts_(charset) {}

    // Replaces `key`. False if the record lacks the first place.
    bool KeyOf(const Record& record, std::string& key);

private:
    bool AppendPart(const Record& record, const KeyPlace& place, std::string& key);

    SortOrder order_;
    PlaceTexts texts_;
    std::string part_;
};

}  // namespace quillory
