#include <quillory/exchange/RecordCharset.h>

namespace quillory {

std::optional<InvalidByte> FirstInvalidByte(const Record& record) {
    for (const auto& [tag, content] : record.fields) {
        const std::size_t at = FindInvalidUtf8(content);
        if (at != content.npos) return InvalidByte{tag, content.data() + at};
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
