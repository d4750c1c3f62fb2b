#pragma once

#include <quillory/checks/RecordRepair.h>
#include <quillory/cli/Reporter.h>
#include <quillory/exchange/Output.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quillory {

// Says what a repair did, on standard error and in a file: a line of JSON for each repair, with
// bytes beyond ASCII as the characters of the same numbers.
class RepairReport {
public:
    // `path` may be empty: no file then. Throws FileError.
    RepairReport(const std::string& path, Reporter& reporter);

    void Take(const Item& item, const std::vector<Repair>& repairs);
    // Gives the file its name.
    void Finish();
    void Summarize(bool isDryRun) const;

    bool HasRepairs() const { return repaired_ > 0; }
    bool HasLeft() const { return left_ > 0; }

private:
    void Say(const Item& item, const Repair& repair) const;
    void Write(const Item& item, const Repair& repair);

    Reporter& reporter_;
    std::unique_ptr<Output> file_;
    std::uint64_t records_ = 0;
    std::uint64_t recordsRepaired_ = 0;
    std::uint64_t repaired_ = 0;
    std::uint64_t kept_ = 0;
    std::uint64_t left_ = 0;
};

}  // namespace quillory
