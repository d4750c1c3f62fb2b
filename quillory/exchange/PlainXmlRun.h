#pragma once

#include <quillory/exchange/PlainXml.h>
#include <quillory/exchange/RecordRuns.h>
#include <quillory/exchange/XmlRecords.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quillory {

// Records of MARC 21 XML that follow one another, with nothing but white space before each, and
// that were read without a fault. Where they were read and where they are given may be different
// threads.
class PlainXmlRun {
public:
    // Reads records from the front of `xml`, which begins at `offset`, until `most` bytes are read
    // or something else comes. Result: how many bytes were read.
    std::size_t Read(PlainXml& plain, std::string_view xml, std::uint64_t offset, std::size_t most);

    std::size_t Size() const { return size_; }
    const XmlRecord& At(std::size_t index) const { return records_[index]; }

private:
    std::vector<XmlRecord> records_;  // and room for more, that of records before Read
    std::size_t size_ = 0;
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
