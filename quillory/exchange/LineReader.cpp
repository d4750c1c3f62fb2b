#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordCheck.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <utility>

namespace quillory {

namespace {

// What is passed over without a loss.
bool IsFrame(FaultCode what) {
    return what == FaultCode::kFiller || what == FaultCode::kByteOrderMark ||
           what == FaultCode::kBlankLines || what == FaultCode::kFileHeader;
}

}  // namespace

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    const bool twoBytes = text.substr(end).starts_with("\r\n");
    text.remove_prefix(std::min(end + (twoBytes ? 2 : 1), text.size()));
    return line;
}

// The record at the front of the input. At the end of the file, or after 4 MiB without an end in
// sight, all that is there.
std::string_view LineReader::FindBlock() {
    constexpr std::size_t kFirstLook = std::size_t{1} << 14;
    constexpr std::size_t kLongest = std::size_t{4} << 20;
    std::size_t look = kFirstLook;
    for (;;) {
        const std::string_view window = input_.Peek(look);
        const std::size_t end = EndOfRecord(window);
        if (end != window.npos) return window.substr(0, end);
        if (window.size() < look || look >= kLongest) return window;
        look = std::max(look * 4, window.size() + 1);
    }
}

void LineReader::AddDamage(Item& item, ItemFault fault) const {
    item.kind = kItemDamaged;
    if (!item.fault) {
        item.fault = std::move(fault);
    } else if (lenient_) {
        item.mends.push_back(std::move(fault));
    }
}

// The offsets count from the front of the item so far. Most often they go up, and no text is passed
// twice.
void LineReader::PlaceFaults(Item& item) const {
    TextPlace place = place_;
    std::uint64_t passed = 0;
    const auto put = [&](ItemFault& fault) {
        if (fault.offset < passed) {
            place = place_;
            passed = 0;
        }
        place.Pass(item.bytes.substr(passed, fault.offset - passed));
        passed = fault.offset;
        fault.lineColumn = place.at;
        fault.offset += item.offset;
    };
    if (item.fault) put(*item.fault);
    for (ItemFault& mend : item.mends) put(mend);
}

void LineReader::GiveStray(Item& item, std::string_view bytes, FaultCode what) const {
    const bool isStray = what != FaultCode::kNone && !IsFrame(what);
    item.Begin(isStray ? kItemStray : kItemFrame, input_.Offset(), bytes);
    item.number = count_;
    if (what != FaultCode::kNone) item.fault = {{what}, item.offset};
}

void LineReader::GiveRecord(Item& item, std::string_view block) {
    item.Begin(kItemRecord, input_.Offset(), block);
    item.number = ++count_;
    Read(block, item);
    const auto unfit = FaultOf(item.record);
    if (unfit && item.kind == kItemRecord) {
        item.kind = kItemDamaged;
        item.fault = unfit;
    }
    sound_ = item.kind == kItemRecord;
    if (sound_ && item.record.fields.empty()) item.notes.push_back(FaultCode::kLeadersAlone);
    PlaceFaults(item);
    if (sound_) return;
    item.controlNumber = item.record.ControlNumber();
    const bool isOfUse = !item.record.leader.empty() && !item.record.fields.empty();
    if (!lenient_ || unfit || !isOfUse) return;
    item.kind = kItemRecord;
    item.isPartial = true;
}

// Reports once what is missing at the end; the item has no bytes.
bool LineReader::GiveEnd(Item& item) {
    const FaultCode missing = MissingAtEnd(sound_);
    if (missing == FaultCode::kNone || std::exchange(ended_, true)) return false;
    GiveStray(item, {}, missing);
    item.fault->lineColumn = place_.at;
    return true;
}

bool LineReader::Next(Item& item) {
    place_.Pass(input_.Peek(taken_).substr(0, taken_));
    input_.Skip(std::exchange(taken_, 0));
    const std::string_view block = FindBlock();
    if (block.empty()) return GiveEnd(item);
    FaultCode what = FaultCode::kNone;
    const std::size_t stray = StrayBytes(block, what);
    taken_ = stray != 0 ? stray : block.size();
    if (stray != 0) {
        GiveStray(item, block.substr(0, stray), what);
    } else {
        GiveRecord(item, block);
    }
    return true;
}

}  // namespace quillory
