#pragma once

#include <quillory/text/TextPlace.h>
#include <zorby/record/CommFormat.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// One record on its way, as views into bytes that somebody else holds.
struct Record {
    std::string_view leader;  // 24 bytes
    std::vector<zorby::CommFormatField> fields;
    std::string_view bytes;  // the whole record in the communications format; empty if it has to be
                             // put together

    // The content of field 001, empty if there is none.
    std::string_view ControlNumber() const;
};

enum ItemKind : std::int32_t {
    kItemRecord,   // a record to be worked on
    kItemDamaged,  // bytes of a record that can't be read
    kItemStray,    // bytes between records that do not belong there
    kItemFrame,    // what the form itself puts around records
};

// What a reader found next in a file. The views hold until the reader is asked again.
struct Item {
    ItemKind kind = kItemRecord;
    std::uint64_t number = 0;       // of the record in its file, from 1
    std::uint64_t offset = 0;       // of the first byte in the file
    std::string_view bytes;         // what the item takes up in the file
    bool continues = false;         // more bytes of the same damage follow in the next item
    std::string reason;             // what is wrong, or what was put right in a rescued record
    std::uint64_t faultOffset = 0;  // in the file
    std::optional<TextPlace> faultPlace;  // the same as line and column, where a form has them
    std::string tag;                      // of the field concerned, empty if none
    std::string controlNumber;            // of a damaged record, as far as it can be made out
    Record record;
};

// Reads records from a file in one of the forms.
class RecordReader {
public:
    virtual ~RecordReader() = default;
    // The next item, or false at the end of the file. Throws FileError.
    virtual bool Next(Item& item) = 0;
};

}  // namespace quillory
