#include <quillory/exchange/CommFormatFaults.h>
#include <quillory/faults/FaultCode.h>

#include <iterator>

namespace quillory {
namespace {

// What a reason is called here, and the positions of the leader that are at fault, if any are.
struct ReasonRow {
    zorby::CommFormatReason reason;
    FaultCode code;
    int first = -1;
    int last = -1;
};

constexpr ReasonRow kReasons[] = {
    {zorby::CFR_None, FaultCode::kNone},
    {zorby::CFR_Empty, FaultCode::kEmptyRecord},
    {zorby::CFR_CutShort, FaultCode::kCutShort},
    {zorby::CFR_LengthNotNumber, FaultCode::kLengthNotNumber, 0, 4},
    {zorby::CFR_LengthWrong, FaultCode::kLengthWrong, 0, 4},
    {zorby::CFR_TooLong, FaultCode::kLongerThanFormat},
    {zorby::CFR_TextAfterEnd, FaultCode::kBytesAfterEnd},
    {zorby::CFR_CountsNotTwo, FaultCode::kCountsNotTwo, 10, 11},
    {zorby::CFR_EntryMap, FaultCode::kEntryMapWrong, 20, 21},
    {zorby::CFR_BaseAddressWrong, FaultCode::kBaseAddressWrong, 12, 16},
    {zorby::CFR_DirectorySize, FaultCode::kDirectorySize},
    {zorby::CFR_DirectoryEntry, FaultCode::kDirectoryEntry},
    {zorby::CFR_DirectoryGap, FaultCode::kDirectoryGap},
    {zorby::CFR_FieldEnd, FaultCode::kFieldEndMisplaced},
    {zorby::CFR_Indicators, FaultCode::kNoIndicatorsBeforeDelimiter},
    {zorby::CFR_SubfieldCode, FaultCode::kNoSubfieldCode},
    {zorby::CFR_FieldCount, FaultCode::kFieldCountsDiffer},
};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(kReasons); ++i) {
        if (kReasons[i].reason != static_cast<zorby::CommFormatReason>(i)) return false;
    }
    return true;
}
static_assert(IsInOrder(), "a reason's row stands in the reason's place");

std::string Allowed(const zorby::CommFormatFault& fault, std::string_view bytes) {
    switch (fault.reason) {
        case zorby::CFR_LengthWrong:
            return std::to_string(bytes.find(zorby::kRecordEnd) + 1);
        case zorby::CFR_Indicators:
        case zorby::CFR_SubfieldCode:
            return "0x1F";
        default:
            return {};
    }
}

}  // namespace

ItemFault FaultOf(const zorby::CommFormatFault& fault, std::string_view bytes) {
    const ReasonRow& row = kReasons[static_cast<std::size_t>(fault.reason)];
    ItemFault found{{row.code, Place::OfField(fault.tag), {}, Allowed(fault, bytes)}, fault.offset};
    if (row.first < 0) return found;
    found.place = Place::OfLeader().Positions(row.first, row.last);
    const auto first = static_cast<std::size_t>(row.first);
    found.found = Printable(bytes.substr(first, static_cast<std::size_t>(row.last) - first + 1));
    return found;
}

}  // namespace quillory
