#pragma once

#include <quillory/edits/EditedRecord.h>
#include <quillory/faults/Errors.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

class TemplateError : public FaultError {
public:
    using FaultError::FaultError;
};

// A text with places in braces, such as "{245a} ({264c})". A brace itself is {{ or }}.
class Template {
public:
    // Throws TemplateError.
    explicit Template(std::string_view text);

    // The text with the first value of each place; nothing if the record lacks one. A place in
    // fields of the tag of `own`, if that is given, means this field.
    std::optional<std::string> Fill(EditedRecord& record,
                                    std::optional<std::size_t> own = std::nullopt) const;

private:
    struct Piece {
        std::string text;  // before the place
        Place place;       // the record as a whole if there is none
    };

    std::vector<Piece> pieces_;
};

// The first value of a place, in UTF-8; that of a data field is its texts with blanks between.
std::optional<std::string> FirstValue(EditedRecord& record, const Place& place,
                                      std::optional<std::size_t> own = std::nullopt);

}  // namespace quillory
