#pragma once

#include <quillory/jobs/KeptRecords.h>
#include <quillory/sets/KeyedRecords.h>
#include <quillory/sets/MatchKey.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillory {

// The ways to match that are asked for; by control number if there are none.
inline std::vector<std::string> WaysToMatch(const std::vector<std::string>& asked) {
    return asked.empty() ? std::vector<std::string>{"001"} : asked;
}

// All records of a file, to be found by their keys.
class KeyedFile {
public:
    using Index = KeyedRecords::Index;

    // What stands in for the key of a record that has none; may be empty.
    using Substitute = std::function<std::string(const Record& record)>;

    // Throws UsageError for ways to match that are none.
    KeyedFile(const std::vector<std::string>& ways, Charset charset, Reporter& reporter,
              Substitute substitute = {})
        : reporter_(reporter),
          keys_(ways, charset),
          substitute_(std::move(substitute)),
          kept_(reporter) {}

    // Hands what is no record to `take`. Result: as KeptRecords. Throws FileError.
    Status Read(const InputOptions& input, const std::function<bool(Item& item)>& take);
    // Names the records that have a key of an earlier one. Result: their number.
    std::uint64_t NameDoubles();

    struct Found {
        Item item;
        std::string file;
        std::vector<std::string> keys;
        bool hasKey = false;  // of its own
        std::string packed;   // what the item views
    };
    Index Count() const { return records_.Count(); }
    // Holds until the next call, FindPartner's too.
    const Found& At(Index record);
    // The first record with one of these keys that is not taken; of the keys, the first counts.
    std::optional<Index> FindPartner(const std::vector<std::string>& keys);
    bool IsTaken(Index record) const { return records_.IsTaken(record); }
    void MarkTaken(Index record) { records_.Take(record); }

private:
    bool FindKeys(const Record& record, std::vector<std::string>& keys);
    bool HasKey(Index record, const std::string& key);

    Reporter& reporter_;
    MatchKeys keys_;
    Substitute substitute_;
    KeptRecords kept_;
    KeyedRecords records_;
    Found found_;
};

}  // namespace quillory
