#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RecordName.h>
#include <quillory/sets/RecordDifference.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quillory {

struct CompareOptions {
    InputOptions input = {};           // two files: before and after
    std::vector<std::string> by = {};  // ways to match, as MatchKeys reads them; none for 001
    std::string ignored = {};          // places that are not compared; may be empty
    std::string rejects = {};
};

// What became of a record.
enum class CompareOutcome : std::uint8_t { New, Gone, Changed, NoKey };

struct ComparedRecord {
    CompareOutcome outcome = CompareOutcome::Changed;
    const RecordName* before = nullptr;  // null if the first file lacks the record
    const RecordName* after = nullptr;
    std::vector<FieldChange> changes;
};

struct CompareTotals {
    std::uint64_t same = 0;
    std::uint64_t changed = 0;
    std::uint64_t gone = 0;
    std::uint64_t added = 0;
    // Records of the two files, the one before and the one after.
    std::array<std::uint64_t, 2> keyless{};  // without a key, and without an equal in the other
    std::array<std::uint64_t, 2> doubles{};  // whose key an earlier one has
};

// Is given what two files differ in.
class CompareReport {
public:
    virtual ~CompareReport() = default;

    // Comes for each record that is not the same in both: first those of the first file, then those
    // that only the second has, each in the order of its file.
    virtual void Take(const ComparedRecord& record) = 0;
    // Comes once, at the end.
    virtual void Finish(const CompareTotals& totals) = 0;
};

// Compares the records of two files, whatever their order, forms and character sets. Records with
// one key go together in their order. Result: kStatusFindings if the files differ, or if something
// could not be compared. Throws FileError and UsageError.
Status CompareFiles(const CompareOptions& options, CompareReport& report, Reporter& reporter);

}  // namespace quillory
