#pragma once

#include <quillory/jobs/ReadFiles.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Reads the records of files for a job that needs all of them before it can write the first: packed
// (PackItem), for a temporary file.
class KeptRecords {
public:
    explicit KeptRecords(Reporter& reporter) : reporter_(reporter) {}

    // Hands each record to `keep`, and what is no record to `take`. What is wrong with a record
    // that could be read is said here. Result: as ReadFiles, and findings for the latter.
    Status Read(const InputOptions& input, const std::function<bool(Item& item)>& take,
                const std::function<void(const Item& item, std::string_view packed)>& keep);
    // A record again, with views of `packed`. Result: the name of its file.
    const std::string& Peek(std::string_view packed, Item& item) const;
    // The same; messages are about its file from now on.
    const std::string& Unpack(std::string_view packed, Item& item) const;
    // The last one has come back: says how many messages were only counted.
    void Finish() const;

private:
    Reporter& reporter_;
    std::vector<std::string> files_;
    std::string packed_;
};

}  // namespace quillory
