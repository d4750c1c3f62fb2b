#pragma once

#include <quillory/exchange/LineBlock.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/TextPlace.h>

namespace quillory {

// What the readers of text forms have in common: a record is a block of lines, and each is either
// read or damaged as a whole.
class LineReader : public RecordReader {
public:
    bool Next(Item& item) final;

protected:
    LineReader(Input& input, const LineBlock& block) : input_(input), block_(block) {}

    // Bytes at the front of `block` that are of no record, and what they are, nothing if they
    // belong there; 0 if there are none.
    virtual std::size_t StrayBytes(std::string_view block, std::string& what) = 0;
    // Reads a block into `item.record`, with views that last until the next call. On a fault, false
    // with the reason, tag and offset in the item, which holds the offset of the block.
    virtual bool Read(std::string_view block, Item& item) = 0;
    // What is missing at the end of the file; empty if it ends well. `sound` is the last record.
    virtual std::string MissingAtEnd(bool /*sound*/) { return {}; }

    // Where the block begins.
    const TextPlace& Place() const { return place_; }

private:
    void Begin(Item& item) const;
    bool GiveEnd(Item& item);

    Input& input_;
    const LineBlock& block_;
    std::uint64_t count_ = 0;
    std::size_t taken_ = 0;
    bool sound_ = true;  // the record given last
    bool ended_ = false;
    TextPlace place_;
};

}  // namespace quillory
