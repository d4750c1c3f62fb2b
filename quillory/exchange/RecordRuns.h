#pragma once

#include <quillory/exchange/Record.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace quillory {

class Input;

// Records that follow one another in a file, not yet given.
struct RecordRun {
    std::string_view bytes;
    std::uint64_t offset = 0;         // of the first byte in the file
    std::uint64_t recordsBefore = 0;  // in the file
    std::uint64_t records = 0;
    std::shared_ptr<const void> holder = {};  // the bytes stay as long as it is held
};

// What a reader is, too, if it can tell where records end without giving them.
class RecordRuns {
public:
    virtual ~RecordRuns() = default;
    // Passes over records that come next and are in memory, of about `most` bytes. Empty if the
    // next item can only be given.
    virtual RecordRun PassOver(std::size_t most) = 0;
    // Reads from `input`, which holds the bytes of a run, the items that this reader would have
    // read.
    virtual std::unique_ptr<RecordReader> ReaderOf(const RecordRun& run, Input& input) const = 0;
};

}  // namespace quillory
