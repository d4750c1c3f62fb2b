#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RecordName.h>
#include <quillory/jobs/WriteRecords.h>
#include <quillory/sets/Duplicates.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillory {

struct DedupeOptions {
    InputOptions input = {};
    OutputOptions output = {};
    std::vector<std::string> by = {};  // ways to match, as MatchKeys reads them
    Keep keep = Keep::First;
    std::string removed = {};     // file for the records that go; empty for none
    std::string memory = "256M";  // as ParseByteSize reads it
};

// A record that goes, and the one that is kept in its place.
struct Duplicate {
    RecordName removed;
    RecordName kept;
    std::string key;  // that both have
};

struct DedupeTotals {
    std::uint64_t records = 0;
    std::uint64_t removed = 0;
    std::uint64_t keyless = 0;  // which are kept
};

// Is given what goes with what.
class DedupeReport {
public:
    virtual ~DedupeReport() = default;

    // Comes for each record that goes, in their order. What it goes with is found out when asked
    // for.
    virtual void Take(const Item& item, const std::function<Duplicate()>& find) = 0;
    // Comes before the records take their name: what was told so far must be safe. Throws
    // FileError.
    virtual void Complete() {}
    // Comes once, at the end.
    virtual void Finish(const DedupeTotals& totals) = 0;
};

// Writes the records of files without those that are there already, by their keys. Throws FileError
// and UsageError.
Status DedupeFiles(const DedupeOptions& options, DedupeReport& report, Reporter& reporter);

}  // namespace quillory
