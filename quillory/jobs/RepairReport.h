#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/repair/RecordRepair.h>

#include <cstdint>
#include <vector>

namespace quillory {

// What a whole run repaired.
struct RepairTotals {
    std::uint64_t records = 0;
    std::uint64_t recordsRepaired = 0;
    std::uint64_t repaired = 0;  // values and lengths
    std::uint64_t kept = 0;
    std::uint64_t left = 0;

    // Counts a record with what became of it.
    void Count(const std::vector<Repair>& repairs);
};

// Writes what a repair does, as it does it.
class RepairReport {
public:
    virtual ~RepairReport() = default;

    // A record as it is after the repair.
    virtual void TakeRecord(const Item& item, const std::vector<Repair>& repairs) = 0;
    // The end of the report. In a dry run nothing was written.
    virtual void Finish(const RepairTotals& totals, bool isDryRun) = 0;
};

}  // namespace quillory
