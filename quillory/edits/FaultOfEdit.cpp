#include <quillory/edits/RecordEditor.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/RecordCheck.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <span>

namespace quillory {
namespace {

using zorby::CommFormatField;

// What no form could hold of a field that an edit has touched.
FaultCode FaultOf(const CommFormatField& field) {
    if (field.IsControlField() && field.content.find(zorby::kDelimiter) != field.content.npos) {
        return FaultCode::kSubfieldsInControlField;
    }
    if (field.IsDataField() && ShapeOf(field) == kBrokenShape) {
        return FaultCode::kNotMadeOfSubfields;
    }
    const auto fault = FaultOf(Record{{}, {field}, {}});
    return fault ? fault->code : FaultCode::kNone;
}

bool IsTooLong(const CommFormatField& field) {
    return CommFormatSize(field) > zorby::kLongestField;
}

Fault TooLong(const Record& record, std::size_t size) {
    const auto longest = std::ranges::max_element(
        record.fields, {}, [](const CommFormatField& field) { return CommFormatSize(field); });
    const auto before =
        std::span(record.fields).first(static_cast<std::size_t>(longest - record.fields.begin()));
    return {FaultCode::kRecordTooLong, PlaceAfter(before, longest->tag), std::to_string(size)};
}

}  // namespace

std::optional<Fault> FaultOfEdit(EditedRecord& edited, const Record& record, bool isIso2709) {
    if (record.fields.empty()) return Fault{FaultCode::kNothingToWrite};
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        if (!edited.IsTouched(i)) continue;
        const CommFormatField& field = record.fields[i];
        const FaultCode code = FaultOf(field);
        if (code != FaultCode::kNone) return Fault{code, edited.PlaceOf(i)};
        if (isIso2709 && IsTooLong(field)) {
            return Fault{FaultCode::kFieldTooLong, edited.PlaceOf(i),
                         std::to_string(CommFormatSize(field))};
        }
    }
    const std::size_t size = CommFormatSize(record);
    const bool isTooLong = isIso2709 && size > zorby::kLongestRecord &&
                           CommFormatSize(edited.Given()) <= zorby::kLongestRecord;
    return isTooLong ? std::optional(TooLong(record, size)) : std::nullopt;
}

}  // namespace quillory
