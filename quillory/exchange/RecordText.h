#pragma once

#include <quillory/exchange/Form.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// One record as it stands among others in a file of this form, without what the form puts around
// records, in the character set that it is in. `former` are the bytes in whose place it comes: the
// blanks at their ends stay, and what the record says of itself fits the file around it.
struct RecordText {
    std::string bytes;
    std::optional<Fault> fault;  // why the form can't hold it; there are no bytes then
};
RecordText TextAmongOthers(const Form& form, const Record& record, std::string_view former);

}  // namespace quillory
