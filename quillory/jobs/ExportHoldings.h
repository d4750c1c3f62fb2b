#pragma once

#include <quillory/holdings/RecordHoldings.h>
#include <quillory/jobs/Reporter.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Which copies go into records, and in what form.
struct HoldingsOptions {
    std::string file;            // of copies; empty for those that records hold
    std::string type;            // the system to write for; empty: that of the settings
    std::string from;            // the system whose fields records hold; empty: that to write for
    std::string memory = "64M";  // the most that is held of the file
};

// Puts the system to write for in force, if it isn't that of the settings. After a true result the
// dictionaries have to be loaded again. Throws UsageError.
bool ChooseHoldingsType(const HoldingsOptions& options);

// The copies that go into records on their way to a file.
class ExportHoldings {
public:
    // Dictionaries and settings are in force. `files` are those of the records. Throws FileError
    // and UsageError.
    ExportHoldings(const HoldingsOptions& options, const std::vector<std::string>& files);
    ExportHoldings(const ExportHoldings&) = delete;
    ExportHoldings& operator=(const ExportHoldings&) = delete;

    // What writes copies into records, for one thread; this outlives it.
    std::unique_ptr<RecordHoldings> MakeWriter() const;
    // Names what is odd about lines of the file, which are written as they stand.
    void SayDoubts(Reporter& reporter) const;
    // This record is not asked for: the lines of the file that belong to it have a record, and yet
    // none to go to. Several threads may say so at a time.
    void PassOver(const Item& item) const;
    // Names each line of the file to which no record belongs, and counts those of records that
    // were passed over; kStatusFindings if a line has no record at all.
    Status SayUnused(Reporter& reporter) const;

private:
    void SayLine(std::string_view kind, std::uint64_t line, const Fault& fault,
                 Reporter& reporter) const;

    HoldingsSystem to_;
    HoldingsSystem from_;
    std::unique_ptr<HoldingsFile> file_;
};

}  // namespace quillory
