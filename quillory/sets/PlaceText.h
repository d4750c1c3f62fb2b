#pragma once

#include <quillory/queries/Values.h>
#include <quillory/sets/KeyPlaces.h>

#include <optional>
#include <string>

namespace quillory {

// The texts in records by which they are sorted, divided or matched, as UTF-8 whatever the records'
// character set.
class PlaceTexts {
public:
    // Auto: the character set of each record.
    explicit PlaceTexts(Charset charset) : reader_(charset) {}

    // The first value that is not blank; of a title all that files it. Nothing if there is none.
    // Of a whole field only what its subfields with letters hold.
    std::optional<std::string> FirstOf(const Record& record, const KeyPlace& place);
    // The same without the characters that an indicator of a title tells not to file by.
    std::optional<std::string> FiledBy(const Record& record, const KeyPlace& place);
    // All values at a place that is not the title, in their order.
    std::vector<std::string> AllOf(const Record& record, const KeyPlace& place);
    // The texts of the subfields of these codes in the first field of a tag, with blanks between.
    std::string FieldText(const Record& record, std::string_view tag, std::string_view codes);

private:
    std::optional<std::string> First(const Record& record, const KeyPlace& place, bool skips);
    // `nonfiling` is the field, if its indicator tells where the text begins; else null.
    std::string Joined(const Record& record, std::string_view content, std::string_view codes,
                       const zorby::CommFormatField* nonfiling);
    std::string TextOf(const Record& record, const ValueSlice& slice, bool skips);

    ValueReader reader_;
};

}  // namespace quillory
