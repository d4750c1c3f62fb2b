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

// What has to stand between two records: `before` is the bytes of the first one, as they stand in
// the file. `isArray` says that the records are items of a JSON array.
std::string_view GapAfter(const Form& form, std::string_view before, bool isArray);

}  // namespace quillory
