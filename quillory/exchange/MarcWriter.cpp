#include <quillory/exchange/MarcWriter.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::CommFormatField;

std::string ByteCount(std::size_t count) {
    return std::to_string(count) + " bytes";
}

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

const CommFormatField& LargestField(const Record& record) {
    return *std::max_element(
        record.fields.begin(), record.fields.end(),
        [](const auto& a, const auto& b) { return a.content.size() < b.content.size(); });
}

std::string Named(const CommFormatField& field) {
    return "field " + std::string(field.tag) + " of " + ByteCount(SizeOf(field));
}

}  // namespace

// Why a record can't be written as it is.
WriteResult MarcAssembler::Refuse(const Record& record) const {
    if (record.fields.empty()) return {false, false, "no field to write"};
    if (oversize_ == kOversizeCut) return {};
    const CommFormatField& largest = LargestField(record);
    if (SizeOf(largest) > zorby::kLongestField) {
        return {false, false, Named(largest) + " is over the format's 9,999"};
    }
    const std::size_t size = SizeOf(record);
    if (size <= zorby::kLongestRecord) return {};
    return {false, false,
            "a record of " + ByteCount(size) +
                " is over the format's 99,999 (largest: " + Named(largest) + ")"};
}

WriteResult MarcAssembler::AssembleFields(const Record& record) {
    const std::string_view leader = MendLeader(record.leader, leader_);
    writer_.Clear();
    writer_.SetLeader(leader);
    WriteResult result;
    result.leaderMended = leader.data() == leader_.data();
    for (const CommFormatField& field : record.fields) {
        if (!writer_.AddField(field.tag, field.content)) {
            result.reason += Named(field) + " left out; ";
        } else if (SizeOf(field) > zorby::kLongestField) {
            result.reason += Named(field) + " stands as 9,999 in the directory; ";
        }
    }
    const std::size_t cut = writer_.Finish(text_);
    if (cut != 0) result.reason += ByteCount(cut) + " cut off the end of the record; ";
    if (!result.reason.empty()) result.reason.resize(result.reason.size() - 2);
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
