#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordCheck.h>

#include <utility>

namespace quillory {

bool LineReader::Next(Item& item) {
    place_.Pass(input_.Peek(taken_).substr(0, taken_));
    input_.Skip(std::exchange(taken_, 0));
    const std::string_view block = block_.Find(input_);
    if (block.empty()) return false;
    item.offset = input_.Offset();
    item.faultOffset = item.offset;
    item.faultPlace.reset();
    item.continues = false;
    item.reason.clear();
    item.tag.clear();
    item.record.bytes = {};
    item.record.fields.clear();
    const std::size_t stray = StrayBytes(block, item.reason);
    item.bytes = stray != 0 ? block.substr(0, stray) : block;
    taken_ = item.bytes.size();
    if (stray != 0) {
        item.kind = item.reason.empty() ? kItemFrame : kItemStray;
        item.number = count_;
        return true;
    }
    item.number = ++count_;
    item.kind = Read(block, item) && CanBeWritten(item) ? kItemRecord : kItemDamaged;
    item.controlNumber = item.record.ControlNumber();
    return true;
}

}  // namespace quillory
