#pragma once

#include <quillory/places/Place.h>
#include <quillory/rules/Rule.h>

#include <string>

namespace quillory {

// What a rule says of one record, and of which place in it.
struct Remark {
    const Rule* rule = nullptr;  // never null
    Severity severity = Severity::Note;
    Place place = {};        // occurrence 0 where the record lacks the field
    std::string found = {};  // as Rule::words has them; UTF-8, or bytes of a record
    std::string allowed = {};
    Place codes = {};  // whose codes are what is allowed; of the record as a whole for none
};

// In words, without the place.
std::string RemarkText(const Remark& remark);

// "245 $a: warning: ... [isbn-invalid]".
std::string RemarkLine(const Remark& remark);
void AppendRemarkLine(const Remark& remark, std::string& line);

}  // namespace quillory
