#pragma once

#include <quillory/exchange/SpillFile.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace quillory {

// Sorts more than memory holds: what has come is sorted and put into a temporary file whenever it
// reaches the bound, and the files are merged at the end. Throws FileError.
class ExternalSort {
public:
    using Take = std::function<void(std::string_view key, std::string_view payload)>;

    // `memory` in bytes bounds what is held, but for an entry that alone is larger.
    explicit ExternalSort(std::size_t memory);
    ~ExternalSort();
    ExternalSort(const ExternalSort&) = delete;
    ExternalSort& operator=(const ExternalSort&) = delete;

    void Add(std::string_view key, std::string_view payload);
    std::uint64_t Count() const { return count_; }
    // How often memory was full so far.
    std::uint64_t Spills() const { return spills_; }
    // Gives all entries in the order of the bytes of their keys, those with one key in the order in
    // which they were added. To be called once; the views last until the call returns.
    void ForEach(const Take& take);

private:
    struct Entry {
        std::uint64_t head;  // the first bytes of the key, as a number
        const char* key;
        std::size_t keySize;
        std::size_t payloadSize;  // the payload stands after the key
    };
    // Entries in order, in a file.
    struct Run {
        std::unique_ptr<SpillFile> file;
        unsigned level;  // how often its entries were merged
    };
    class RunReader;

    std::size_t NeededFor(std::size_t size) const;
    char* Room(std::size_t size);
    void SortEntries();
    void GiveEntries(const Take& take);
    void Spill();
    void AddRun(std::unique_ptr<SpillFile> file, unsigned level);
    void Merge(std::size_t first, const Take& take);

    std::size_t memory_;
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* end_ = nullptr;   // of the last block
    std::size_t free_ = 0;  // bytes before it
    std::size_t held_ = 0;  // bytes of all blocks
    std::vector<Entry> entries_;
    std::vector<Run> runs_;  // in the order of their entries
    std::uint64_t count_ = 0;
    std::uint64_t spills_ = 0;
};

}  // namespace quillory
