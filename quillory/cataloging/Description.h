#pragma once

#include <quillory/cataloging/Entry.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What a file says of one new record.
struct Description {
    std::string workform;  // its name; empty if none is named
    std::vector<Entry> entries;
    Fault error;               // why no record can be made of it; of no code if one can
    LineColumn where;          // of the error
    std::uint64_t offset = 0;  // of its bytes in the file
    std::uint64_t size = 0;
    std::uint64_t line = 0;  // that it begins with, from 1
};

// Reads the descriptions of a TOML file: one for each [[record]], or a single one in a file that
// has no [[record]]. A `workform` above the first is for all records that name none. The keys of a
// record are places as in ReadEntry, and their values are
//   245a = "Title"                  a text, or an array of texts
//   245 = "10$aTitle"               a field as it is to stand, or an array of fields
//   264 = {a = "Town :", c = 2021}  a field by its subfields, each a text or an array of texts,
//                                   and its indicators ("ind"); or an array of such fields
// A record that is not valid TOML does not keep the others from being read.
class DescriptionReader {
public:
    // Keeps the view.
    explicit DescriptionReader(std::string_view toml);

    // What stands above the first [[record]]; empty if there is none.
    std::string_view Head() const { return headText_; }

    // False at the end.
    bool Next(Description& description);

private:
    void ReadHead();
    void ReadRecord(Description& description);
    // Moves on by `size` bytes.
    void Skip(std::size_t size);

    std::string_view rest_;
    std::uint64_t offset_ = 0;
    std::uint64_t line_ = 1;
    Description head_;  // what stands above the first record
    std::string_view headText_;
    bool hasRecords_ = false;
};

}  // namespace quillory
