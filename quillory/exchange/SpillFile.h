#pragma once

#include <quillory/exchange/Output.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// Bytes that memory should not hold, or that can't be written yet because others come before them
// in the output: a file without a name keeps them, as long as the object lives. It is made in the
// folder that TMPDIR names, or in /tmp. Throws FileError.
class SpillFile {
public:
    SpillFile();
    ~SpillFile();
    SpillFile(const SpillFile&) = delete;
    SpillFile& operator=(const SpillFile&) = delete;

    void Write(std::string_view bytes);
    std::uint64_t Size() const { return written_ + pending_.size(); }
    // As many of the bytes from `offset` on as there are, and fit. Result: their number.
    std::size_t ReadAt(std::uint64_t offset, std::span<char> target);
    void CopyTo(Output& output);

private:
    void Flush();

    int descriptor_ = -1;
    std::string pending_;
    std::uint64_t written_ = 0;
};

}  // namespace quillory
