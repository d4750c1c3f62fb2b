#include <quillory/exchange/CommFormatFaults.h>
#include <quillory/exchange/MarcReader.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace quillory {
namespace {

// Bytes without a record terminator. What is longer comes in pieces.
constexpr std::size_t kLongestDamage = std::size_t{4} << 20;

// Of the record length, which begins the leader.
constexpr std::size_t kLengthSize = 5;

std::size_t StatedLength(std::string_view bytes) {
    std::size_t length = 0;
    for (const char c : bytes.substr(0, kLengthSize)) {
        if (c < '0' || c > '9') return 0;
        length = length * 10 + static_cast<std::size_t>(c - '0');
    }
    return bytes.size() < kLengthSize ? 0 : length;
}

// Whether a leader begins here whose length was left blank.
bool HasBlankLength(std::string_view bytes) {
    return bytes.size() >= zorby::kLeaderSize && bytes.starts_with("     ") &&
           bytes.substr(10, 2) == "22" && bytes.substr(20, 2) == "45";
}

// The offset of a sound record at the end of damaged bytes; their size if there is none.
std::size_t FindSoundTail(std::string_view bytes) {
    zorby::CommFormatFields fields;
    for (std::size_t at = 1; at + zorby::kLeaderSize < bytes.size(); ++at) {
        const std::string_view tail = bytes.substr(at);
        if (StatedLength(tail) == tail.size() && !ReadCommFormat(tail, fields)) return at;
    }
    return bytes.size();
}

// The content of field 001 in damaged bytes, if it is the first field, as it nearly always is.
std::string_view LikelyControlNumber(std::string_view bytes) {
    constexpr std::size_t kLongest = 64;
    if (bytes.substr(std::min(bytes.size(), zorby::kLeaderSize), 3) != "001") return {};
    const std::size_t directoryEnd = bytes.find(zorby::kFieldEnd);
    const std::size_t start = directoryEnd == bytes.npos ? bytes.size() : directoryEnd + 1;
    const std::size_t end = bytes.find(zorby::kFieldEnd, start);
    return end != bytes.npos && end - start <= kLongest ? bytes.substr(start, end - start)
                                                        : std::string_view{};
}

}  // namespace

bool MarcReader::Fits(std::string_view head) {
    return std::min(head.find_first_not_of("0123456789"), head.size()) >= kLengthSize;
}

void MarcReader::Give(Item& item, ItemKind kind, std::string_view bytes) {
    item.Begin(kind, begin_ + input_.Offset(), bytes);
    if (kind == kItemRecord || kind == kItemDamaged) ++count_;
    item.number = count_;
    taken_ = bytes.size();
}

// A doubled record terminator is not filler, but there is nothing in it to be lost.
bool MarcReader::TakeFiller(Item& item) {
    constexpr std::size_t kMost = 99999;
    static const std::string kFiller = std::string(kRecordFiller) + zorby::kRecordEnd;
    if (kFiller.find(input_.Peek(1).front()) == kFiller.npos) return false;
    const std::string_view window = input_.Peek(kMost).substr(0, kMost);
    std::size_t size = std::min(window.find_first_not_of(kFiller), window.size());
    if (size >= kLengthSize && HasBlankLength(window.substr(size - kLengthSize))) {
        size -= kLengthSize;
    }
    if (size == 0) return false;
    const std::string_view bytes = window.substr(0, size);
    const bool isFiller = bytes.find(zorby::kRecordEnd) == bytes.npos;
    Give(item, isFiller ? kItemFrame : kItemStray, bytes);
    item.fault = {{isFiller ? FaultCode::kFiller : FaultCode::kStrayBytes}, item.offset};
    return true;
}

bool MarcReader::TakeSoundRecord(Item& item) {
    const std::size_t length = StatedLength(input_.Peek(zorby::kLeaderSize));
    if (length <= zorby::kLeaderSize) return false;
    const std::string_view window = input_.Peek(length);
    if (length > window.size()) return false;
    const std::string_view bytes = window.substr(0, length);
    if (ReadCommFormat(bytes, fields_)) return false;
    Give(item, kItemRecord, bytes);
    std::swap(item.record.fields, fields_.fields);
    item.record.leader = fields_.leader;
    item.record.bytes = bytes;
    return true;
}

void MarcReader::Rescue(Item& item) {
    salvage_.Read(item.bytes);
    item.record.leader = salvage_.Leader();
    item.record.fields = salvage_.Fields();
    const bool isTooLongAlone = item.bytes.size() > zorby::kLongestRecord && salvage_.IsWhole();
    if (isTooLongAlone || (lenient_ && salvage_.IsRecord())) {
        item.kind = kItemRecord;
        item.mends = salvage_.Mends();
        item.isPartial = !salvage_.IsWhole();
        for (ItemFault& mend : item.mends) mend.offset += item.offset;
        return;
    }
    const auto& others = salvage_.Others();
    item.record.fields.insert(item.record.fields.end(), others.begin(), others.end());
    if (!lenient_) return;
    zorby::CommFormatRescue rescue;
    item.fault->notRescued = FaultOf(RescueCommFormat(item.bytes, rescue), item.bytes);
}

void MarcReader::TakeEndlessDamage(Item& item, std::string_view window) {
    Give(item, kItemDamaged, window);
    if (inEndlessDamage_) --count_;
    item.number = count_;
    item.fault = {{FaultCode::kNoRecordEnd}, item.offset};
    item.continues = inEndlessDamage_;
    inEndlessDamage_ = true;
}

// A window with the next record terminator, if that is not too far. It is no larger than it has to
// be, since somebody may hold what came before.
std::string_view MarcReader::PeekDamage() {
    for (std::size_t size = std::size_t{1} << 16; size < kLongestDamage; size *= 4) {
        const std::string_view window = input_.Peek(size);
        if (window.size() < size || window.find(zorby::kRecordEnd) != window.npos) return window;
    }
    return input_.Peek(kLongestDamage);
}

void MarcReader::TakeDamage(Item& item) {
    const std::string_view window = PeekDamage();
    const std::size_t end = window.find(zorby::kRecordEnd);
    if (end == window.npos && window.size() >= kLongestDamage) {
        TakeEndlessDamage(item, window);
        return;
    }
    const std::string_view chunk = window.substr(0, end == window.npos ? end : end + 1);
    const std::string_view bytes = chunk.substr(0, FindSoundTail(chunk));
    if (bytes.size() < chunk.size() && !inEndlessDamage_) {
        Give(item, kItemStray, bytes);
        item.fault = {{FaultCode::kTextBetweenRecords}, item.offset};
        return;
    }
    Give(item, kItemDamaged, bytes);
    item.continues = std::exchange(inEndlessDamage_, false);
    if (item.continues) item.number = --count_;
    item.controlNumber = LikelyControlNumber(bytes);
    if (end == window.npos && StatedLength(bytes) == 0) {
        item.fault = {{FaultCode::kNotMarc}, item.offset};
        return;
    }
    item.fault = FaultOf(ReadCommFormat(bytes, fields_), bytes);
    item.fault->offset += item.offset;
    if (!item.continues) Rescue(item);
}

bool MarcReader::Next(Item& item) {
    input_.Skip(std::exchange(taken_, 0));
    if (input_.Peek(1).empty()) return false;
    if (!inEndlessDamage_ && (TakeFiller(item) || TakeSoundRecord(item))) return true;
    TakeDamage(item);
    return true;
}

RecordRun MarcReader::PassOver(std::size_t most) {
    input_.Skip(std::exchange(taken_, 0));
    const std::size_t next = StatedLength(input_.Peek(kLengthSize));
    RecordRun run{input_.Peek(next), begin_ + input_.Offset(), count_};
    run.holder = input_.Hold();
    while (taken_ < most && !inEndlessDamage_) {
        const std::string_view rest = run.bytes.substr(taken_);
        const std::size_t length = StatedLength(rest);
        const bool isWhole = length > zorby::kLeaderSize && length <= rest.size() &&
                             rest.substr(0, length).find(zorby::kRecordEnd) == length - 1;
        if (!isWhole) break;
        taken_ += length;
        ++run.records;
    }
    count_ += run.records;
    run.bytes = run.bytes.substr(0, taken_);
    return run;
}

std::unique_ptr<RecordReader> MarcReader::ReaderOf(const RecordRun& run, Input& input) const {
    auto reader = std::make_unique<MarcReader>(input, lenient_);
    reader->begin_ = run.offset;
    reader->count_ = run.recordsBefore;
    return reader;
}

}  // namespace quillory
