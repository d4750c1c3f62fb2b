#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/Record.h>
#include <quillory/exchange/TextPlace.h>

#include <optional>
#include <string_view>

namespace quillory {

// Takes one line off the front of `text`, with a line end of CR LF, LF or CR, which is not part of
// the result.
std::string_view TakeLine(std::string_view& text);

// What the readers of text forms have in common: a record is a block of lines, and each is either
// read or damaged as a whole.
class LineReader : public RecordReader {
public:
    bool Next(Item& item) final;

protected:
    // With `lenient` a damaged record that has a leader is given without the lines that can't be
    // read.
    explicit LineReader(Input& input, bool lenient = false) : input_(input), lenient_(lenient) {}

    // Bytes from the start of `window` that belong to the record there; npos if its end is not in
    // sight.
    virtual std::size_t EndOfRecord(std::string_view window) const = 0;
    // Bytes at the front of `block` that belong to no record; 0 if there are none. `what` is set to
    // what they are, and is left as it is if they belong there. Filler and headers are frame.
    virtual std::size_t StrayBytes(std::string_view block, FaultCode& what) = 0;
    // Reads a block into an item whose record is empty, with views that last until the next call.
    // What is wrong has offsets that count from the block: the item's fault is what comes first,
    // what else is left out are its mends. The item's kind becomes damaged if lines can't be read.
    virtual void Read(std::string_view block, Item& item) = 0;
    // Adds what is wrong to an item that is being read.
    void AddDamage(Item& item, ItemFault fault) const;
    // What is missing at the end of the file; nothing if it ends well. `sound` is the last record.
    virtual FaultCode MissingAtEnd(bool /*sound*/) { return FaultCode{}; }

    // Blanks before the block in its line.
    std::size_t Indent() const { return place_.indent; }

private:
    std::string_view FindBlock();
    void GiveStray(Item& item, std::string_view bytes, FaultCode what) const;
    void GiveRecord(Item& item, std::string_view block);
    bool GiveEnd(Item& item);
    void PlaceFaults(Item& item) const;

    Input& input_;
    bool lenient_;
    TextPlace place_;  // of the input
    std::uint64_t count_ = 0;
    std::size_t taken_ = 0;  // bytes of the item given last
    bool sound_ = true;      // the record given last
    bool ended_ = false;
};

}  // namespace quillory
