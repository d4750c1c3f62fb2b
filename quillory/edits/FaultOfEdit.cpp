#include <quillory/edits/RecordEditor.h>
#include <quillory/exchange/RecordCheck.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::CommFormatField;

std::size_t SizeOf(const CommFormatField& field) {
    return field.content.size() + 1;
}

std::size_t SizeOf(const Record& record) {
    std::size_t size = zorby::kLeaderSize + 2;
    for (const CommFormatField& field : record.fields) {
        size += zorby::kDirectoryEntrySize + SizeOf(field);
    }
    return size;
}

bool IsTooLong(const CommFormatField& field) {
    return SizeOf(field) > zorby::kLongestField;
}

bool HasSubfieldsAmiss(const CommFormatField& field) {
    return field.IsControlField() && field.content.find(zorby::kDelimiter) != field.content.npos;
}

bool IsBroken(const CommFormatField& field) {
    return field.IsDataField() && ShapeOf(field) == kBrokenShape;
}

Place PlaceOf(const Record& record, const CommFormatField& field) {
    const auto index = static_cast<std::size_t>(&field - record.fields.data());
    return PlaceAfter(std::span(record.fields).first(index), field.tag);
}

// The last field of the edited record that is so, if the record has more such fields than before.
template <class IsSo>
const CommFormatField* NewOne(const Record& given, const Record& edited, IsSo isSo) {
    const auto count = std::ranges::count_if(edited.fields, isSo);
    if (count == 0 || count <= std::ranges::count_if(given.fields, isSo)) return nullptr;
    return &*std::find_if(edited.fields.rbegin(), edited.fields.rend(), isSo);
}

std::optional<Fault> FaultOfLength(const Record& given, const Record& edited) {
    if (const auto* field = NewOne(given, edited, IsTooLong)) {
        return Fault{FaultCode::kFieldTooLong, PlaceOf(edited, *field),
                     std::to_string(SizeOf(*field))};
    }
    const std::size_t size = SizeOf(edited);
    if (size <= zorby::kLongestRecord || SizeOf(given) > zorby::kLongestRecord) return {};
    const auto& longest = *std::ranges::max_element(
        edited.fields, {}, [](const CommFormatField& field) { return SizeOf(field); });
    return Fault{FaultCode::kRecordTooLong, PlaceOf(edited, longest), std::to_string(size)};
}

}  // namespace

std::optional<Fault> FaultOfEdit(const Record& given, const Record& edited, bool isIso2709) {
    if (edited.fields.empty()) return Fault{FaultCode::kNothingToWrite};
    if (const auto* field = NewOne(given, edited, HasSubfieldsAmiss)) {
        return Fault{FaultCode::kSubfieldsInControlField, PlaceOf(edited, *field)};
    }
    if (const auto* field = NewOne(given, edited, IsBroken)) {
        return Fault{FaultCode::kNotMadeOfSubfields, PlaceOf(edited, *field)};
    }
    if (auto fault = FaultOf(edited); fault && !FaultOf(given)) return Fault(*fault);
    return isIso2709 ? FaultOfLength(given, edited) : std::nullopt;
}

}  // namespace quillory
