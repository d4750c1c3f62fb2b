#include <quillory/sets/PackedItem.h>
#include <quillory/sets/Packing.h>

namespace quillory {
namespace {

// A record in ISO 2709 is packed as the bytes alone that it was read from.
void PackFields(const Record& record, std::string& packed) {
    AppendText(record.leader, packed);
    AppendNumber(record.fields.size(), packed);
    for (const zorby::CommFormatField& field : record.fields) {
        AppendText(field.tag, packed);
        AppendText(field.content, packed);
    }
}

void UnpackFields(std::string_view& packed, Record& record) {
    record.leader = TakeText(packed);
    record.fields.resize(TakeNumber(packed));
    for (zorby::CommFormatField& field : record.fields) {
        field.tag = TakeText(packed);
        field.content = TakeText(packed);
    }
}

void ReadFields(Record& record) {
    zorby::CommFormatFields parts;
    parts.fields.swap(record.fields);
    zorby::ReadCommFormat(record.bytes, parts);
    record.leader = parts.leader;
    record.fields.swap(parts.fields);
}

}  // namespace

void PackItem(const Item& item, std::uint64_t file, std::string& packed) {
    packed.clear();
    AppendNumber(file, packed);
    AppendNumber(item.number, packed);
    AppendNumber(item.offset, packed);
    AppendText(item.bytes, packed);
    const bool isAsItWas = item.record.bytes.data() == item.bytes.data() &&
                           item.record.bytes.size() == item.bytes.size() && !item.bytes.empty();
    packed += isAsItWas ? '\1' : '\0';
    if (!isAsItWas) PackFields(item.record, packed);
}

std::uint64_t UnpackItem(std::string_view packed, Item& item) {
    const std::uint64_t file = TakeNumber(packed);
    const std::uint64_t number = TakeNumber(packed);
    const std::uint64_t offset = TakeNumber(packed);
    item.Begin(kItemRecord, offset, TakeText(packed));
    item.number = number;
    const bool isAsItWas = packed.starts_with('\1');
    packed.remove_prefix(1);
    if (isAsItWas) {
        item.record.bytes = item.bytes;
        ReadFields(item.record);
    } else {
        UnpackFields(packed, item.record);
    }
    return file;
}

}  // namespace quillory
