#pragma once

#include <quillory/faults/Fault.h>
#include <quillory/places/LineColumn.h>
#include <zorby/record/CommFormat.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// One record on its way, as views into bytes that somebody else holds.
struct Record {
    std::string_view leader;  // 24 bytes
    std::vector<zorby::CommFormatField> fields;
    std::string_view bytes;  // the whole record in ISO 2709; empty if it has to be put together

    // The fields side by side, each with its field terminator; empty if `bytes` is.
    std::string_view Data() const;
    // The content of the first field 001; empty if there is none.
    std::string_view ControlNumber() const;
};

// The place of a field that comes after these.
Place PlaceAfter(std::span<const zorby::CommFormatField> fields, std::string_view tag);

enum ItemKind : std::int32_t {
    kItemRecord,   // a record that could be read
    kItemDamaged,  // bytes of a record that can't be read
    kItemStray,    // bytes between records that do not belong there
    // What the form itself puts around records. With a fault it is filler between them, which is
    // no damage.
    kItemFrame,
};

// What is wrong with an item, and where in its file.
struct ItemFault : Fault {
    std::uint64_t offset = 0;
    std::optional<LineColumn> lineColumn = {};  // the same, where a form has lines
    // Why the record can't be read without the lengths that are wrong, if that was tried.
    std::optional<Fault> notRescued = {};
};

// What a reader found next in a file. The views hold until the reader is asked again.
struct Item {
    ItemKind kind = kItemRecord;
    std::uint64_t number = 0;  // of the record in its file, from 1
    std::uint64_t offset = 0;  // of the first byte in the file
    std::string_view bytes;    // what the item takes up in the file
    bool continues = false;    // the item goes on with the damage of the one before it
    std::optional<ItemFault>
        fault;  // for a record: what is wrong with its bytes, now read otherwise
    // What of a record with a fault is left out or read in another way than it stands there.
    std::vector<ItemFault> mends;
    bool isPartial = false;        // the record lacks something that its bytes have
    std::vector<FaultCode> notes;  // what leaves no doubt and is only counted
    std::string controlNumber;     // of a damaged record, as far as it can be made out
    Record record;  // of a damaged record, what can be read of it, for a person to look at

    // Makes it another item, of the bytes at `offset`, whose record is still empty.
    void Begin(ItemKind newKind, std::uint64_t newOffset, std::string_view newBytes);
};

// Reads records from a file in one of the forms.
class RecordReader {
public:
    virtual ~RecordReader() = default;
    // The next item, or false at the end of the file. Throws FileError.
    virtual bool Next(Item& item) = 0;
};

}  // namespace quillory
