#include <quillory/sets/PackedRecords.h>

#include <limits>

namespace quillory {

void PackedRecords::Add(std::string_view packed) {
    if (ends_.size() == std::numeric_limits<Index>::max()) {
        throw FileError("there are too many records for one work");
    }
    file_.Write(packed);
    ends_.push_back(file_.Size());
}

void PackedRecords::Read(Index record, std::string& packed) {
    const std::uint64_t begin = record == 0 ? 0 : ends_[record - 1];
    packed.resize(ends_[record] - begin);
    file_.ReadAt(begin, packed);
}

}  // namespace quillory
