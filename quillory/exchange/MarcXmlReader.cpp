#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/RecordCheck.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kPiece = std::size_t{16} << 10;
// What is given away as soon as it is not needed, and what is needed for no sound record or tag.
constexpr std::size_t kMuch = std::size_t{1} << 20;
constexpr std::size_t kTooMuch = std::size_t{4} << 20;

}  // namespace

// Hands the next piece of the file to the parser, and in the end its end.
bool MarcXmlReader::Feed() {
    if (fedAll_) return false;
    const auto known = static_cast<std::size_t>(fed_ - input_.Offset());
    const std::string_view window = input_.Peek(known + kPiece).substr(0, known + kPiece);
    fedAll_ = window.size() == known;
    fed_ += window.size() - known;
    records_.Feed(window, input_.Offset(), window.size() - known);
    return true;
}

void MarcXmlReader::Give(Item& item, ItemKind kind, std::uint64_t end) {
    taken_ = static_cast<std::size_t>(end - input_.Offset());
    item.kind = kind;
    item.offset = input_.Offset();
    item.bytes = input_.Peek(taken_).substr(0, taken_);
    item.faultOffset = item.offset;
    item.faultPlace.reset();
    item.continues = kind == kItemDamaged && inDamage_;
    item.reason.clear();
    item.tag.clear();
    item.controlNumber.clear();
    if ((kind == kItemRecord || kind == kItemDamaged) && !item.continues) ++count_;
    item.number = count_;
}

void MarcXmlReader::SetFault(Item& item, const std::string& reason, std::uint64_t offset) {
    item.reason = reason;
    item.faultOffset = std::clamp(offset, item.offset, item.offset + item.bytes.size());
    item.faultPlace = place_.After(item.bytes.substr(0, item.faultOffset - item.offset));
}

void MarcXmlReader::GiveRecord(Item& item) {
    records_.Take(record_);
    const RecordBuilder& builder = record_.builder;
    Give(item, builder.Failed() ? kItemDamaged : kItemRecord, record_.end);
    inDamage_ = false;
    builder.Give(item.record);
    item.controlNumber = item.record.ControlNumber();
    if (builder.Failed()) {
        SetFault(item, builder.Reason(), record_.faultOffset);
        item.tag = builder.Tag();
    } else if (!CanBeWritten(item)) {
        item.kind = kItemDamaged;
        SetFault(item, std::string(item.reason), item.offset);
    }
}

// What nobody can make a record of any more, in pieces.
void MarcXmlReader::GiveDamage(Item& item, std::uint64_t end) {
    Give(item, kItemDamaged, end);
    if (!inDamage_ && records_.InRecord()) {
        Record unended;
        records_.Unended().builder.Give(unended);
        item.controlNumber = unended.ControlNumber();
    }
    inDamage_ = true;
}

// Behind a fault nothing is read. The fault is told even if no byte is left.
bool MarcXmlReader::GiveRest(Item& item) {
    const std::size_t left = input_.Peek(kMuch).size();
    if (left == 0 && inDamage_) return false;
    GiveDamage(item, input_.Offset() + left);
    SetFault(item, records_.Reason() + "; the file is read no further", records_.FaultOffset());
    return true;
}

// Gives what can be given while no record is ended. False if that is nothing.
bool MarcXmlReader::GivePassed(Item& item) {
    const std::uint64_t offset = input_.Offset();
    const bool inRecord = records_.InRecord();
    if (fed_ - offset < kMuch && !records_.Failed()) return false;
    const std::uint64_t start = records_.Unended().start;
    const std::uint64_t known = records_.Failed() ? offset : records_.Position();
    const std::uint64_t passed = inRecord ? std::max(start, offset) : known;
    if (passed > offset) {
        Give(item, kItemFrame, passed);
        return true;
    }
    if (records_.Failed() || fed_ - offset < kTooMuch) return false;
    const char* reason = "a record, tag or comment of over 4 MiB";
    if (!inRecord || records_.Position() == offset) {
        records_.Fail(reason, offset);
        return false;
    }
    records_.Abandon(reason);
    GiveDamage(item, records_.Position());
    SetFault(item, reason, offset);
    return true;
}

// What is left behind the last record.
bool MarcXmlReader::GiveEnd(Item& item) {
    const std::size_t left = input_.Peek(kMuch).size();
    if (left == 0) return false;
    const bool isMarc = records_.IsMarc();
    Give(item, isMarc ? kItemFrame : kItemStray, input_.Offset() + left);
    if (!isMarc) item.reason = "XML that holds no MARC record";
    return true;
}

bool MarcXmlReader::Next(Item& item) {
    place_.Pass(input_.Peek(taken_).substr(0, taken_));
    input_.Skip(std::exchange(taken_, 0));
    do {
        if (!records_.Empty()) {
            const std::uint64_t start = records_.Front().start;
            if (start > input_.Offset()) {
                Give(item, kItemFrame, start);
            } else {
                GiveRecord(item);
            }
            return true;
        }
        if (GivePassed(item)) return true;
        if (records_.Failed()) return GiveRest(item);
    } while (Feed());
    return GiveEnd(item);
}

}  // namespace quillory
