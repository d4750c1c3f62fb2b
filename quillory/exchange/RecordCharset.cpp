#include <quillory/exchange/RecordCharset.h>
#include <quillory/faults/FaultCode.h>

namespace quillory {

std::optional<InvalidByte> FirstInvalidByte(const Record& record) {
    const std::span fields = record.fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string_view content = fields[i].content;
        const std::size_t at = FindInvalidUtf8(content);
        if (at == content.npos) continue;
        const Place place = PlaceAfter(fields.first(i), fields[i].tag);
        return InvalidByte{{FaultCode::kInvalidUtf8, place, HexText(content[at])}, &content[at]};
    }
    return std::nullopt;
}

Utf8Counts CountUtf8(const Record& record) {
    Utf8Counts counts;
    const std::string_view data = record.Data();
    if (!data.empty()) {
        CountUtf8(data, counts);
    } else {
        for (const zorby::CommFormatField& field : record.fields) CountUtf8(field.content, counts);
    }
    return counts;
}

Charset ActualCharset(std::string_view leader, const Utf8Counts& counts) {
    if (counts.valid > 0 && counts.invalid == 0) return kCharsetUtf8;
    if (counts.valid == 0 && counts.invalid > 0) return kCharsetMarc8;
    return LabelledCharset(leader);
}

Charset ActualCharset(const Record& record) {
    return ActualCharset(record.leader, CountUtf8(record));
}

}  // namespace quillory
