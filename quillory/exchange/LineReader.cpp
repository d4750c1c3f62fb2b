#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordCheck.h>

#include <utility>

namespace quillory {

void LineReader::Begin(Item& item) const {
    item.number = count_;
    item.offset = input_.Offset();
    item.faultOffset = item.offset;
    item.faultPlace.reset();
    item.continues = false;
    item.reason.clear();
    item.tag.clear();
    item.controlNumber.clear();
    item.record.bytes = {};
    item.record.fields.clear();
}

// What is missing is told of no bytes, once.
bool LineReader::GiveEnd(Item& item) {
    std::string missing = MissingAtEnd(sound_);
    if (missing.empty() || std::exchange(ended_, true)) return false;
    Begin(item);
    item.kind = kItemStray;
    item.reason = std::move(missing);
    item.bytes = {};
    item.faultPlace = place_;
    return true;
}

bool LineReader::Next(Item& item) {
    place_.Pass(input_.Peek(taken_).substr(0, taken_));
    input_.Skip(std::exchange(taken_, 0));
    const std::string_view block = block_.Find(input_);
    if (block.empty()) return GiveEnd(item);
    Begin(item);
    const std::size_t stray = StrayBytes(block, item.reason);
    item.bytes = stray != 0 ? block.substr(0, stray) : block;
    taken_ = item.bytes.size();
    if (stray != 0) {
        item.kind = item.reason.empty() ? kItemFrame : kItemStray;
        return true;
    }
    item.number = ++count_;
    sound_ = Read(block, item) && CanBeWritten(item);
    item.kind = sound_ ? kItemRecord : kItemDamaged;
    item.controlNumber = item.record.ControlNumber();
    return true;
}

}  // namespace quillory
