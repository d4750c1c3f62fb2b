#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/repair/Repair.h>

#include <cstdint>
#include <vector>

namespace quillory {

// What a job repaired in all its records.
struct RepairTotals {
    std::uint64_t records = 0;
    std::uint64_t recordsRepaired = 0;
    std::uint64_t repaired = 0;  // values and lengths
    std::uint64_t kept = 0;      // values
    std::uint64_t left = 0;      // fields and records

    // Counts one more record, with all that became of it.
    void Count(const std::vector<Repair>& repairs);
};

// Is given what a repair does, record by record.
class RepairReport {
public:
    virtual ~RepairReport() = default;

    // Comes for every record; the item's record is as it is after the repair.
    virtual void TakeRecord(const Item& item, const std::vector<Repair>& repairs) = 0;
    // Comes once, after the last record. A dry run wrote no records.
    virtual void Finish(const RepairTotals& totals, bool isDryRun) = 0;
};

}  // namespace quillory
