#include <quillory/exchange/MarcWriter.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::CommFormatField;

// `field` is its index, `size` of the field or of the whole record.
Fault FaultOf(FaultCode code, const Record& record, std::size_t field, std::size_t size) {
    const std::span fields = record.fields;
    return {code, PlaceAfter(fields.first(field), fields[field].tag), std::to_string(size)};
}

std::size_t LargestField(const Record& record) {
    const auto largest = std::ranges::max_element(
        record.fields, {}, [](const CommFormatField& field) { return field.content.size(); });
    return static_cast<std::size_t>(largest - record.fields.begin());
}

}  // namespace

std::size_t CommFormatSize(const CommFormatField& field) {
    return field.content.size() + 1;
}

std::size_t CommFormatSize(const Record& record) {
    std::size_t size = zorby::kLeaderSize + 2;
    for (const CommFormatField& field : record.fields) {
        size += zorby::kDirectoryEntrySize + CommFormatSize(field);
    }
    return size;
}

// Why a record can't be written as it is.
WriteResult MarcAssembler::Refuse(const Record& record) const {
    if (record.fields.empty()) return NotWritten({FaultCode::kNothingToWrite});
    if (oversize_ == kOversizeCut) return {};
    const std::size_t largest = LargestField(record);
    const std::size_t size = CommFormatSize(record.fields[largest]);
    if (size > zorby::kLongestField) {
        return NotWritten(FaultOf(FaultCode::kFieldTooLong, record, largest, size));
    }
    const std::size_t whole = CommFormatSize(record);
    if (whole <= zorby::kLongestRecord) return {};
    return NotWritten(FaultOf(FaultCode::kRecordTooLong, record, largest, whole));
}

WriteResult MarcAssembler::AssembleFields(const Record& record) {
    const std::string_view leader = MendLeader(record.leader, leader_);
    writer_.Clear();
    writer_.SetLeader(leader);
    WriteResult result;
    result.leaderMended = leader.data() == leader_.data();
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const CommFormatField& field = record.fields[i];
        const std::size_t size = CommFormatSize(field);
        if (!writer_.AddField(field.tag, field.content)) {
            result.faults.push_back(FaultOf(FaultCode::kFieldLeftOut, record, i, size));
        } else if (size > zorby::kLongestField) {
            result.faults.push_back(FaultOf(FaultCode::kFieldLengthCut, record, i, size));
        }
    }
    const std::size_t cut = writer_.Finish(text_);
    if (cut != 0) result.faults.push_back({FaultCode::kRecordCut, {}, std::to_string(cut)});
    bytes_ = text_;
    return result;
}

WriteResult MarcAssembler::Assemble(const Record& record) {
    if (record.bytes.empty()) {
        WriteResult refused = Refuse(record);
        return refused.written ? AssembleFields(record) : refused;
    }
    bytes_ = record.bytes;
    const std::string_view leader = MendLeader(record.leader, leader_);
    if (leader.data() == record.bytes.data()) return {};
    text_ = leader;
    text_ += record.bytes.substr(zorby::kLeaderSize);
    bytes_ = text_;
    return {true, leader.data() == leader_.data(), {}};
}

WriteResult MarcWriter::Write(const Record& record, Losses&) {
    WriteResult result = assembler_.Assemble(record);
    if (result.written) output_.Write(assembler_.Bytes());
    return result;
}

}  // namespace quillory
