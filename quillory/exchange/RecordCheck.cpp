#include <quillory/exchange/RecordCheck.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

bool HoldsAnEnd(std::string_view text) {
    return text.find(zorby::kRecordEnd) != text.npos || text.find(zorby::kFieldEnd) != text.npos;
}

bool AreTagBytes(std::string_view tag) {
    return std::ranges::all_of(tag, [](char c) { return ' ' < c && c < 0x7F; });
}

FaultCode CodeOfField(const zorby::CommFormatField& field) {
    if (!AreTagBytes(field.tag)) return FaultCode::kTagBytes;
    if (HasEmptyCode(field.content) && field.IsDataField()) return FaultCode::kNoSubfieldCode;
    return HoldsAnEnd(field.content) ? FaultCode::kEndInText : FaultCode::kNone;
}

}  // namespace

std::optional<Fault> FaultOfLeader(std::string_view leader) {
    if (!HoldsAnEnd(leader)) return std::nullopt;
    return Fault{FaultCode::kEndInText, Place::OfLeader()};
}

std::optional<ItemFault> FaultOf(const Record& record) {
    if (auto fault = FaultOfLeader(record.leader)) return ItemFault{std::move(*fault)};
    const std::span fields = record.fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const FaultCode code = CodeOfField(fields[i]);
        if (code == FaultCode::kNone) continue;
        const std::string allowed = code == FaultCode::kNoSubfieldCode ? "0x1F" : "";
        return ItemFault{{code, PlaceAfter(fields.first(i), fields[i].tag), {}, allowed}};
    }
    return std::nullopt;
}

}  // namespace quillory
