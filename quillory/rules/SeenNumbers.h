#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The numbers that a run has met, in 14 to 18 bytes each: a number is known by 64 bits made of it.
class SeenNumbers {
public:
    void BeginFile(const std::string& name);

    // A record of the run.
    enum class RecordMet : std::uint32_t {};

    // What a number is known by. Kinds of numbers (those of 001, of 020) don't mix.
    static std::uint64_t HashOf(char kind, std::string_view number);
    // Where the number of this hash was met first; nothing if it is new, or was met in this record.
    // `record` is the number of the record in its file, from 1 on.
    std::optional<RecordMet> Meet(std::uint64_t hash, std::uint64_t record);
    // "3", or "3 of FILE" for another file.
    std::string TextOf(RecordMet record) const;

private:
    struct File {
        std::string name;
        std::uint32_t before;  // records of the files before it
    };

    void Grow();
    // Where a hash stands, or would stand.
    std::size_t PlaceOf(std::uint64_t hash) const;

    std::vector<File> files_;
    std::uint32_t last_ = 0;  // record of all files
    // Side by side, so that no bytes are lost between them. A record of 0 is a free place.
    std::vector<std::uint64_t> hashes_;
    std::vector<std::uint32_t> records_;
    std::size_t used_ = 0;
};

}  // namespace quillory
