#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>
#include <zorby/record/detail/CommFormatParts.h>

#include <algorithm>

namespace zorby {
namespace {

// Checks that the record's length agrees with its record terminator and with the number of bytes.
CommFormatFault CheckLength(std::string_view bytes) {
    if (bytes.empty()) return Fault(CFR_Empty, 0);
    const std::size_t end = bytes.find(kRecordEnd);
    const int length = DecimalField(bytes, kLeaderLength, 5);
    if (end == bytes.npos || bytes.size() < kLeaderSize) return Fault(CFR_CutShort, bytes.size());
    if (length < 0) return Fault(CFR_LengthNotNumber, kLeaderLength);
    if (end + 1 > kLongestRecord) return Fault(CFR_TooLong, kLeaderLength);
    if (static_cast<std::size_t>(length) != end + 1) return Fault(CFR_LengthWrong, kLeaderLength);
    if (end + 1 < bytes.size()) return Fault(CFR_TextAfterEnd, end + 1);
    return {};
}

CommFormatFault CheckCounts(std::string_view leader) {
    if (leader.substr(kLeaderIndicatorCount, 2) != "22") {
        return Fault(CFR_CountsNotTwo, kLeaderIndicatorCount);
    }
    if (leader.substr(kLeaderEntryMap, 2) != "45") {
        return Fault(CFR_EntryMap, kLeaderEntryMap);
    }
    return {};
}

CommFormatFault CheckBaseAddress(std::string_view bytes) {
    const int base = DecimalField(bytes, kLeaderBaseAddress, 5);
    const bool inside = base > static_cast<int>(kLeaderSize) &&
                        static_cast<std::size_t>(base) < bytes.size() &&
                        bytes[static_cast<std::size_t>(base) - 1] == kFieldEnd;
    if (!inside) return Fault(CFR_BaseAddressWrong, kLeaderBaseAddress);
    const std::size_t directorySize = static_cast<std::size_t>(base) - 1 - kLeaderSize;
    if (directorySize % kDirectoryEntrySize != 0) return Fault(CFR_DirectorySize, kLeaderSize);
    return {};
}

// Even if the directory has the fields in another order, they must be side by side in the data.
bool FieldsTileData(const std::vector<CommFormatField>& fields, std::string_view data) {
    std::vector<std::string_view> places;
    places.reserve(fields.size());
    for (const CommFormatField& field : fields) places.push_back(field.content);
    std::sort(places.begin(), places.end(),
              [](std::string_view a, std::string_view b) { return a.data() < b.data(); });
    const char* expected = data.data();
    for (const std::string_view place : places) {
        if (place.data() != expected) return false;
        expected = place.data() + place.size() + 1;
    }
    return expected == data.data() + data.size();
}

class Reader {
public:
    Reader(std::string_view bytes, std::size_t base)
        : bytes_(bytes), base_(base), data_(bytes.substr(base, bytes.size() - 1 - base)) {}

    // Reads fields that stand side by side in the order of the directory and are plainly sound, as
    // in most records. False if it takes a closer look.
    bool ReadPlain(std::vector<CommFormatField>& fields) const;
    CommFormatFault Read(std::vector<CommFormatField>& fields) const;

private:
    std::size_t PlainLength(const char* entry, std::size_t start) const;
    CommFormatFault ReadEntry(std::size_t at, CommFormatField& field) const;

    std::string_view bytes_;
    std::size_t base_;
    std::string_view data_;
};

// The length of a field that stands at `start`, as its entry says; 0 if that is not plain.
std::size_t Reader::PlainLength(const char* entry, std::size_t start) const {
    const FieldSpan span = ReadSpan(entry + kTagSize);
    const bool isPlain = span.length != 0 && span.start == start &&
                         span.length <= data_.size() - start &&
                         data_[start + span.length - 1] == kFieldEnd;
    return isPlain ? span.length : 0;
}

bool Reader::ReadPlain(std::vector<CommFormatField>& fields) const {
    fields.resize((base_ - 1 - kLeaderSize) / kDirectoryEntrySize);
    const char* entry = bytes_.data() + kLeaderSize;
    std::size_t start = 0;
    for (CommFormatField& field : fields) {
        const std::size_t size = PlainLength(entry, start);
        if (size == 0) return false;
        field = {{entry, kTagSize}, {data_.data() + start, size - 1}};
        if (IsDataTag(field.tag) ? !HasIndicators(field.content) : !IsTag(field.tag)) return false;
        start += size;
        entry += kDirectoryEntrySize;
    }
    const FieldMarks marks = MarksIn(data_);
    return start == data_.size() && marks.fieldEnds == fields.size() && !marks.lacksCode;
}

CommFormatFault Reader::ReadEntry(std::size_t at, CommFormatField& field) const {
    const std::string_view entry = bytes_.substr(at, kDirectoryEntrySize);
    field.tag = entry.substr(0, 3);
    const int length = DecimalField(entry, 3, 4);
    const int start = DecimalField(entry, 7, 5);
    if (!IsTag(field.tag) || length < 0 || start < 0 ||
        static_cast<std::size_t>(start) + static_cast<std::size_t>(length) > data_.size()) {
        return Fault(CFR_DirectoryEntry, at, field.tag);
    }
    const std::string_view content =
        data_.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
    const std::size_t end = content.find(kFieldEnd);
    const std::size_t offset = base_ + static_cast<std::size_t>(start);
    if (content.empty() || end != content.size() - 1) {
        return Fault(CFR_FieldEnd, offset + std::min(end, content.size()), field.tag);
    }
    field.content = content.substr(0, end);
    const ContentFault fault = CheckContent(field);
    if (fault.reason == CFR_None) return {};
    return Fault(fault.reason, offset + fault.offset, field.tag);
}

CommFormatFault Reader::Read(std::vector<CommFormatField>& fields) const {
    fields.clear();
    const char* expected = data_.data();
    bool inOrder = true;
    for (std::size_t at = kLeaderSize; at + 1 < base_; at += kDirectoryEntrySize) {
        CommFormatField& field = fields.emplace_back();
        if (CommFormatFault fault = ReadEntry(at, field)) return fault;
        inOrder = inOrder && field.content.data() == expected;
        expected = field.content.data() + field.content.size() + 1;
    }
    const bool whole = inOrder && expected == data_.data() + data_.size();
    if (!whole && !FieldsTileData(fields, data_)) return Fault(CFR_DirectoryGap, kLeaderSize);
    return {};
}

CommFormatFault ReadFields(std::string_view bytes, CommFormatFields& fields) {
    if (CommFormatFault fault = CheckLength(bytes)) return fault;
    fields.leader = bytes.substr(0, kLeaderSize);
    if (CommFormatFault fault = CheckCounts(fields.leader)) return fault;
    if (CommFormatFault fault = CheckBaseAddress(bytes)) return fault;
    const int base = DecimalField(bytes, kLeaderBaseAddress, 5);
    const Reader reader(bytes, static_cast<std::size_t>(base));
    if (reader.ReadPlain(fields.fields)) return {};
    return reader.Read(fields.fields);
}

}  // namespace

CommFormatFault ReadCommFormat(std::string_view bytes, CommFormatFields& fields) {
    CommFormatFault fault = ReadFields(bytes, fields);
    if (fault) fields.fields.clear();
    return fault;
}

CommFormatFault ReadCommFormat(std::string_view bytes, CPmarc& record) {
    record.Clear();
    CommFormatFields fields;
    if (CommFormatFault fault = ReadCommFormat(bytes, fields)) return fault;
    record.FieldAppend("000", fields.leader);
    for (const CommFormatField& field : fields.fields) {
        record.FieldAppend(field.tag, field.content);
    }
    return {};
}

std::string CommFormatFaultText(CommFormatReason reason) {
    switch (reason) {
        case CFR_None:
            return "no fault";
        case CFR_Empty:
            return "no bytes";
        case CFR_CutShort:
            return "cut short: no record terminator (0x1D)";
        case CFR_LengthNotNumber:
            return "leader 00-04 is not a number";
        case CFR_LengthWrong:
            return "leader 00-04 is not the record's length";
        case CFR_TooLong:
            return "longer than 99,999 bytes";
        case CFR_TextAfterEnd:
            return "bytes after the record terminator (0x1D)";
        case CFR_CountsNotTwo:
            return "leader 10-11 is not \"22\"";
        case CFR_EntryMap:
            return "leader 20-21 is not \"45\"";
        case CFR_BaseAddressWrong:
            return "leader 12-16 does not point past the directory's field terminator (0x1E)";
        case CFR_DirectorySize:
            return "the directory is not a whole number of 12-byte entries";
        case CFR_DirectoryEntry:
            return "a directory entry without a tag, or with a length and start outside the data";
        case CFR_DirectoryGap:
            return "fields overlap, or data belongs to no field";
        case CFR_FieldEnd:
            return "a field terminator (0x1E) is not where the directory says";
        case CFR_Indicators:
            return "no two indicators before the first delimiter (0x1F)";
        case CFR_SubfieldCode:
            return "a delimiter (0x1F) without a subfield code";
        case CFR_FieldCount:
            return "the directory and the data differ in their number of fields";
    }
    return "unknown fault";
}

}  // namespace zorby
