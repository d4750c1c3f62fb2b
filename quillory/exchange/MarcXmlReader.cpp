#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/RecordCheck.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kPiece = std::size_t{16} << 10;   // given to the parser at a time
constexpr std::size_t kMuch = std::size_t{1} << 20;     // outside of records, to be passed on
constexpr std::size_t kTooMuch = std::size_t{4} << 20;  // for a record or a tag

}  // namespace

// The window as far as the parser is to know it: to the end of a piece, or of a tag that may end a
// record, which others may follow that need no parser.
std::string_view MarcXmlReader::NextPiece() {
    constexpr std::string_view kTagEnd = "record>";
    const auto known = static_cast<std::size_t>(fed_ - input_.Offset());
    const std::size_t size = known + kPiece - static_cast<std::size_t>((fed_ - begin_) % kPiece);
    const std::string_view window = input_.Peek(size).substr(0, size);
    const std::size_t end = window.find(kTagEnd, known);
    return window.substr(0, end == window.npos ? end : end + kTagEnd.size());
}

// Hands the next piece of the file to the parser, and once the end of the file. False after that.
bool MarcXmlReader::Feed() {
    if (fedAll_) return false;
    if (lineFed_) records_->PassLines(place_.at.line - *lineFed_);
    lineFed_.reset();
    const auto known = static_cast<std::size_t>(fed_ - input_.Offset());
    const std::string_view window = NextPiece();
    fedAll_ = window.size() == known;
    fed_ += window.size() - known;
    records_->Feed(window, input_.Offset(), window.size() - known);
    return true;
}

// Whether a record may come next that can be read without the parser.
bool MarcXmlReader::CanReadPlain() {
    if (fed_ != input_.Offset() || !records_->IsBetweenRecords()) return false;
    plain_.SetStartTag(records_->RecordTag());
    return true;
}

// The parser is to pass over the next bytes, since they were read without it.
void MarcXmlReader::PassPlain(std::size_t bytes) {
    if (!lineFed_) lineFed_ = place_.at.line;
    fed_ += bytes;
    records_->PassOver(bytes);
}

// Reads the next record without the parser, if that is possible.
bool MarcXmlReader::ReadPlain() {
    if (!CanReadPlain()) return false;
    const auto read = [this](std::string_view xml) {
        record_.builder.Clear();
        return plain_.Read(xml, record_.builder);
    };
    std::string_view window = input_.Peek(1);
    auto reading = read(window);
    while (reading == PlainXml::kCutShort && window.size() < kMuch) {
        const std::size_t before = window.size();
        window = input_.Peek(before + kPiece);
        if (window.size() == before) break;
        reading = read(window);
    }
    if (reading != PlainXml::kRead) return false;
    record_.start = fed_ + plain_.Blanks();
    record_.end = fed_ + plain_.Size();
    PassPlain(plain_.Size());
    return true;
}

// Takes what was read ahead, or reads records of about `most` bytes while others are read ahead.
PlainXmlAhead::Part MarcXmlReader::ReadRun(std::string_view xml, std::size_t most) {
    const std::string& tag = records_->RecordTag();
    if (auto part = ahead_.Take(fed_, tag)) return *std::move(part);
    ahead_.Begin(xml, fed_, tag, runs_, input_.Hold());
    auto run = runs_.Take();
    const std::size_t size = run->Read(plain_, xml, fed_, std::min(most, ahead_.BytesBefore(fed_)));
    return {std::move(run), size};
}

// Those that are in memory as a whole.
RecordRun MarcXmlReader::PassOver(std::size_t most) {
    SkipTaken();
    RecordRun run{{}, input_.Offset(), count_};
    if (isToGive_ || !records_->Empty() || !CanReadPlain()) return run;
    const std::string_view window = input_.Peek(1);
    const auto [records, size] = ReadRun(window, most);
    if (size == 0) return run;
    PassPlain(size);
    taken_ = size;
    inDamage_ = false;
    run.bytes = window.substr(0, size);
    run.records = records->Size();
    run.holder = HolderOf(records, input_.Hold());
    count_ += run.records;
    return run;
}

std::unique_ptr<RecordReader> MarcXmlReader::ReaderOf(const RecordRun& run, Input&) const {
    return std::make_unique<PlainXmlRunReader>(run);
}

// The next record, whoever reads it. False if there is none yet.
bool MarcXmlReader::TakeNext() {
    isPlain_ = records_->Empty();
    if (isPlain_) return ReadPlain();
    records_->Take(record_);
    return true;
}

void MarcXmlReader::Give(Item& item, ItemKind kind, std::uint64_t end) {
    taken_ = static_cast<std::size_t>(end - input_.Offset());
    item.Begin(kind, input_.Offset(), input_.Peek(taken_).substr(0, taken_));
    item.continues = kind == kItemDamaged && inDamage_;
    if ((kind == kItemRecord || kind == kItemDamaged) && !item.continues) ++count_;
    item.number = count_;
}

void MarcXmlReader::SetFault(Item& item, const Fault& fault, std::uint64_t offset) {
    const std::uint64_t at = std::clamp(offset, item.offset, item.offset + item.bytes.size());
    item.fault = ItemFault{fault, at, place_.After(item.bytes.substr(0, at - item.offset))};
}

void MarcXmlReader::GiveRecord(Item& item) {
    const auto& damage = record_.builder.Damage(lenient_);
    Give(item, damage ? kItemDamaged : kItemRecord, record_.end);
    inDamage_ = false;
    record_.builder.Give(item);
    if (damage) {
        SetFault(item, *damage, record_.faultOffset);
    } else if (const auto fault = isPlain_ ? std::nullopt : FaultOf(item.record)) {
        item.kind = kItemDamaged;
        SetFault(item, *fault, item.offset);
    } else if (item.fault) {
        SetFault(item, *item.fault, item.offset);
        for (ItemFault& mend : item.mends) mend.offset = item.offset;
    }
    if (item.fault) item.controlNumber = item.record.ControlNumber();
}

// What is before the record that has been read, or this record.
void MarcXmlReader::GiveUpToRecord(Item& item) {
    isToGive_ = record_.start > input_.Offset();
    if (isToGive_) {
        Give(item, kItemFrame, record_.start);
    } else {
        GiveRecord(item);
    }
}

// A piece of a record that can't be read any more.
void MarcXmlReader::GiveDamage(Item& item, std::uint64_t end) {
    Give(item, kItemDamaged, end);
    if (!inDamage_ && records_->InRecord()) {
        records_->Unended().builder.Give(item);
        item.fault.reset();
        item.controlNumber = item.record.ControlNumber();
    }
    inDamage_ = true;
}

// After a fault nothing is read. The fault is reported even if no byte is left.
bool MarcXmlReader::GiveRest(Item& item) {
    const std::size_t left = input_.Peek(kMuch).size();
    if (left == 0 && inDamage_) return false;
    GiveDamage(item, input_.Offset() + left);
    const ItemFault& fault = *records_->WhatFailed();
    SetFault(item, fault, fault.offset);
    return true;
}

// Gives what can be given while no record has ended. False if there is nothing.
bool MarcXmlReader::GivePassed(Item& item) {
    const std::uint64_t offset = input_.Offset();
    const bool inRecord = records_->InRecord();
    if (fed_ - offset < kMuch && !records_->Failed()) return false;
    const std::uint64_t start = records_->Unended().start;
    const std::uint64_t known = records_->Failed() ? offset : records_->Position();
    const std::uint64_t passed = inRecord ? std::max(start, offset) : known;
    if (passed > offset) {
        Give(item, kItemFrame, passed);
        return true;
    }
    if (records_->Failed() || fed_ - offset < kTooMuch) return false;
    if (!inRecord || records_->Position() == offset) {
        records_->Fail({FaultCode::kXmlPartTooLong}, offset);
        return false;
    }
    records_->Abandon(FaultCode::kXmlRecordTooLong);
    GiveDamage(item, records_->Position());
    SetFault(item, {FaultCode::kXmlRecordTooLong}, offset);
    return true;
}

// After the root there may be another document. What the parser stopped at is its declaration.
bool MarcXmlReader::BeginNextDocument(Item& item) {
    constexpr std::string_view kDeclaration = "<?xml";
    if (!records_->Failed() || !records_->IsOver()) return false;
    const auto known = static_cast<std::size_t>(fed_ - input_.Offset());
    const auto stop = static_cast<std::size_t>(records_->WhatFailed()->offset - input_.Offset());
    const std::size_t start = input_.Peek(known).substr(0, known).rfind(kDeclaration, stop);
    if (start == std::string_view::npos) return false;
    const std::uint64_t next = input_.Offset() + start;
    if (next == begin_) return false;
    fed_ = begin_ = next;
    fedAll_ = false;
    inDamage_ = false;
    records_.emplace(fed_);
    Give(item, kItemFrame, fed_);
    return true;
}

// What is left after the last record.
bool MarcXmlReader::GiveEnd(Item& item) {
    const std::size_t left = input_.Peek(kMuch).size();
    if (left == 0) return false;
    const bool isMarc = records_->IsMarc();
    Give(item, isMarc ? kItemFrame : kItemStray, input_.Offset() + left);
    if (!isMarc) item.fault = {{FaultCode::kNoMarcInXml}, item.offset};
    return true;
}

// Moves past what was given last.
void MarcXmlReader::SkipTaken() {
    place_.Pass(input_.Peek(taken_).substr(0, taken_));
    input_.Skip(std::exchange(taken_, 0));
}

bool MarcXmlReader::Next(Item& item) {
    SkipTaken();
    do {
        if (isToGive_ || TakeNext()) {
            GiveUpToRecord(item);
            return true;
        }
        if (BeginNextDocument(item) || GivePassed(item)) return true;
        if (records_->Failed()) return GiveRest(item);
    } while (Feed());
    return GiveEnd(item);
}

}  // namespace quillory
