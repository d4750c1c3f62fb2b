#include <quillory/exchange/Record.h>

#include <algorithm>

namespace quillory {

std::string_view Record::Data() const {
    const std::size_t start = zorby::kLeaderSize + fields.size() * zorby::kDirectoryEntrySize + 1;
    return bytes.size() > start ? bytes.substr(start, bytes.size() - start - 1)
                                : std::string_view();
}

std::string_view Record::ControlNumber() const {
    for (const zorby::CommFormatField& field : fields) {
        if (field.tag == "001") return field.content;
    }
    return {};
}

Place PlaceAfter(std::span<const zorby::CommFormatField> fields, std::string_view tag) {
    const auto before = std::ranges::count(fields, tag, &zorby::CommFormatField::tag);
    return Place::OfField(tag, static_cast<std::uint32_t>(before + 1));
}

void Item::Begin(ItemKind newKind, std::uint64_t newOffset, std::string_view newBytes) {
    kind = newKind;
    offset = newOffset;
    bytes = newBytes;
    continues = false;
    fault.reset();
    mends.clear();
    isPartial = false;
    notes.clear();
    controlNumber.clear();
    record.leader = {};
    record.fields.clear();
    record.bytes = {};
}

}  // namespace quillory
