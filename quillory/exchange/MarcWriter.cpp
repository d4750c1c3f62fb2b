#include <quillory/exchange/MarcWriter.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

using zorby::CommFormatField;

std::size_t LargestField(const Record& record) {
    const auto largest = std::ranges::max_element(
        record.fields, {}, [](const CommFormatField& field) { return field.content.size(); });
    return static_cast<std::size_t>(largest - record.fields.begin());
}

// The content as far as the directory can describe it: whole subfields, or if the first one is too
// long by itself, whole words, or whole characters.
std::string_view CutToFit(const CommFormatField& field) {
    constexpr std::size_t kMost = zorby::kLongestField - 1;
    const std::string_view content = field.content;
    if (content.size() <= kMost) return content;
    const std::size_t delimiter = content.rfind(zorby::kDelimiter, kMost);
    if (delimiter != content.npos && delimiter > kIndicators) return content.substr(0, delimiter);
    const std::size_t blank = content.rfind(' ', kMost);
    constexpr std::size_t kFirstWord = 5;  // after indicators, delimiter, code and a byte
    if (blank != content.npos && blank >= kFirstWord) return content.substr(0, blank);
    std::size_t size = kMost;
    while (size > kMost - 4 && IsContinuation(content[size])) --size;
    return content.substr(0, size);
}

}  // namespace

std::size_t CommFormatSize(const CommFormatField& field) {
    return field.content.size() + 1;
}

std::size_t CommFormatSize(const Record& record) {
    return zorby::CommFormatSize(record.fields);
}

// `field` is its index, `size` of the field or of the whole record.
Fault MarcAssembler::FaultOf(FaultCode code, const Record& record, std::size_t field,
                             std::size_t size) {
    const std::span fields = record.fields;
    return {code, places_.After(fields.first(field), fields[field].tag), std::to_string(size)};
}

// Why a record without room for all its fields is not written.
WriteResult MarcAssembler::RefuseSize(const Record& record) {
    const std::size_t largest = LargestField(record);
    const std::size_t size = CommFormatSize(record.fields[largest]);
    if (size > zorby::kLongestField) {
        return NotWritten(FaultOf(FaultCode::kFieldTooLong, record, largest, size));
    }
    return NotWritten(FaultOf(FaultCode::kRecordTooLong, record, largest, CommFormatSize(record)));
}

void MarcAssembler::AddAsItIs(const Record& record, std::size_t field, WriteResult& result) {
    const std::size_t size = CommFormatSize(record.fields[field]);
    if (!writer_.AddField(record.fields[field].tag, record.fields[field].content)) {
        result.faults.push_back(FaultOf(FaultCode::kFieldLeftOut, record, field, size));
    } else if (size > zorby::kLongestField) {
        result.faults.push_back(FaultOf(FaultCode::kFieldLengthCut, record, field, size));
    }
}

// A field that the directory can't describe is cut; one that the record has no room for is left
// out, and a shorter one after it may still find room.
void MarcAssembler::AddToFit(const Record& record, std::size_t field, WriteResult& result) {
    const CommFormatField& given = record.fields[field];
    const CommFormatField fitting{given.tag, CutToFit(given)};
    const std::size_t size = CommFormatSize(given);
    const std::size_t grown = size_ + zorby::kDirectoryEntrySize + CommFormatSize(fitting);
    if (grown > zorby::kLongestRecord || !writer_.AddField(fitting.tag, fitting.content)) {
        result.faults.push_back(FaultOf(FaultCode::kFieldLeftOut, record, field, size));
        return;
    }
    size_ = grown;
    if (fitting.content.size() == given.content.size()) return;
    Fault fault = FaultOf(FaultCode::kFieldCutToFit, record, field, size);
    fault.allowed = std::to_string(CommFormatSize(fitting));
    result.faults.push_back(std::move(fault));
}

// As many fields as the record has room for.
void MarcAssembler::AssembleSome(const Record& record, std::string_view leader,
                                 WriteResult& result) {
    writer_.Clear();
    writer_.SetLeader(leader);
    size_ = zorby::CommFormatSize({});
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        if (oversize_ == kOversizeCut) {
            AddToFit(record, i, result);
        } else {
            AddAsItIs(record, i, result);
        }
    }
    const std::size_t cut = writer_.Finish(text_);
    if (cut != 0) result.faults.push_back({FaultCode::kRecordCut, {}, std::to_string(cut)});
}

WriteResult MarcAssembler::AssembleFields(const Record& record) {
    if (record.fields.empty()) return NotWritten({FaultCode::kNothingToWrite});
    if (record.leader.find(zorby::kRecordEnd) != record.leader.npos) {
        return NotWritten({FaultCode::kEndInText, Place::OfLeader()});
    }
    const std::string_view leader = MendLeader(record.leader, leader_);
    WriteResult result;
    result.leaderMended = leader.data() == leader_.data();
    if (!zorby::WriteCommFormat(leader, record.fields, text_)) {
        if (oversize_ == kOversizeRefuse) return RefuseSize(record);
        AssembleSome(record, leader, result);
    }
    bytes_ = text_;
    return result;
}

WriteResult MarcAssembler::Assemble(const Record& record) {
    places_.Clear();
    if (record.bytes.empty()) return AssembleFields(record);
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
