#pragma once

#include <quillory/exchange/PlainXml.h>
#include <quillory/exchange/RecordBuilder.h>
#include <quillory/exchange/RecordRuns.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quillory {

// Records of MARC 21 XML that follow one another, with nothing but white space before each, and
// that were read without a fault. Where they were read and where they are given may be different
// threads; so what they hold lies close together, in the order in which it is asked for.
class PlainXmlRun {
public:
    // Reads records from the front of `xml`, which begins at `offset`, until `most` bytes are read
    // or something else comes. Result: how many bytes were read.
    std::size_t Read(PlainXml& plain, std::string_view xml, std::uint64_t offset, std::size_t most);

    std::size_t Size() const { return records_.size(); }
    // Where the element of a record begins in the file, and where it has ended.
    std::uint64_t Start(std::size_t index) const { return records_[index].start; }
    std::uint64_t End(std::size_t index) const { return records_[index].end; }
    // As its builder would give it, in views that last until the next Read.
    void Give(std::size_t index, Item& item) const;

private:
    // Where a record stands in the file, and where its parts end in the builder.
    struct KeptRecord {
        std::uint64_t start;
        std::uint64_t end;
        std::array<char, zorby::kLeaderSize> leader;
        RecordBuilder::Mark mark;
    };

    void Keep(std::uint64_t start, std::uint64_t end);

    RecordBuilder builder_;  // of all records
    std::vector<KeptRecord> records_;
};

// Keeps room for runs, which is used again once nobody holds a run any more.
class PlainXmlRuns {
public:
    std::shared_ptr<PlainXmlRun> Take();

private:
    std::vector<std::shared_ptr<PlainXmlRun>> runs_;
};

// What holds a run and the bytes that it was read from.
std::shared_ptr<const void> HolderOf(std::shared_ptr<const PlainXmlRun> run,
                                     std::shared_ptr<const void> bytes);

// Gives the items of a run, which has such a holder if it is not empty.
class PlainXmlRunReader : public RecordReader {
public:
    explicit PlainXmlRunReader(const RecordRun& run);

    bool Next(Item& item) override;

private:
    const PlainXmlRun* records_;  // null if the run is empty
    std::string_view rest_;       // of the bytes
    std::uint64_t offset_;        // of them
    std::uint64_t count_;         // of records in the file
    std::size_t given_ = 0;       // of the run
};

}  // namespace quillory
