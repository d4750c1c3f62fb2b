#include <quillory/exchange/RecordCheck.h>

#include <algorithm>

namespace quillory {
namespace {

bool HoldsAnEnd(std::string_view text) {
    return text.find(zorby::kRecordEnd) != text.npos || text.find(zorby::kFieldEnd) != text.npos;
}

bool IsTag(std::string_view tag) {
    return std::all_of(tag.begin(), tag.end(), [](char c) { return c > ' ' && c < 0x7F; });
}

bool HasEmptyCode(std::string_view content) {
    return content.ends_with(zorby::kDelimiter) || content.find("\x1F\x1F") != content.npos;
}

}  // namespace

bool CanBeWritten(Item& item) {
    if (HoldsAnEnd(item.record.leader)) item.reason = "a field or record end in the leader";
    for (const zorby::CommFormatField& field : item.record.fields) {
        if (HoldsAnEnd(field.content)) {
            item.reason = "a field or record end (0x1E, 0x1D) in a field";
        }
        if (field.IsDataField() && HasEmptyCode(field.content)) {
            item.reason = "a delimiter (0x1F) without a subfield code";
        }
        if (!IsTag(field.tag)) item.reason = "a tag with bytes that no tag has";
        if (!item.reason.empty()) {
            item.tag = field.tag;
            return false;
        }
    }
    return item.reason.empty();
}

}  // namespace quillory
