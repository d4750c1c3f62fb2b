#pragma once

#include <quillory/jobs/ReadFiles.h>

#include <cstdint>
#include <optional>
#include <string>

namespace quillory {

struct PickOptions {
    InputOptions input;
    std::string output = "-";
    std::string rejects;                  // for the bytes of what is no record; empty for none
    std::string numbers;                  // as ParseRecordNumbers reads them; empty for any
    std::string ids;                      // a file of IDs; empty for any
    std::string idPlace = "001";          // where records have them; a set of places
    bool invert = false;                  // the records that are not asked for
    std::optional<std::uint64_t> first;   // at most so many
    std::optional<std::uint64_t> sample;  // so many by chance, in the order of the files
    std::uint64_t seed = 1;               // the same for the same sample
};

// Copies records of files of one form, their bytes unchanged: those that all of where, numbers and
// IDs ask for. A sample is in memory until the end. Result: findings for damage, for IDs of no
// record, and if there is nothing to be copied. Throws FileError and UsageError.
Status PickRecords(const PickOptions& options, Reporter& reporter);

}  // namespace quillory
