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

Charset ActualCharset(const Record& record) {
    const Charset labelled = LabelledCharset(record.leader);
    Utf8Counts counts;
    for (const zorby::CommFormatField& field : record.fields) CountUtf8(field.content, counts);
    if (counts.valid > 0 && counts.invalid == 0) return kCharsetUtf8;
    if (counts.valid == 0 && counts.invalid > 0) return kCharsetMarc8;
    return labelled;
}

}  // namespace quillory
