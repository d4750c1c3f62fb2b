#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/repair/Repair.h>

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace quillory {

// The repairs of one class at one element, or what was left there.
struct RepairRow {
    Repair first;  // of them
    std::uint64_t count = 0;
};

struct RepairNumbers {
    std::uint64_t records = 0;
    std::uint64_t recordsRepaired = 0;
    std::uint64_t repaired = 0;  // values and lengths
    std::uint64_t left = 0;      // values, fields and records
};

// What a job repaired in all its records.
struct RepairTotals : RepairNumbers {
    // By class, then what was repaired before what was left, then place.
    using Key = std::tuple<RepairClass, bool, std::string>;

    std::map<Key, RepairRow> rows;
};

class RepairCounter {
public:
    // Without rows the totals are numbers alone.
    explicit RepairCounter(bool hasRows = true) : hasRows_(hasRows) {}

    // Counts one more record, with all that became of it.
    void Count(const std::vector<Repair>& repairs);
    // Adds what was counted of later records.
    void Add(const RepairCounter& later);

    RepairTotals Totals() const;

private:
    RepairRow& RowOf(const Repair& repair);

    bool hasRows_;
    RepairNumbers numbers_;
    std::vector<RepairRow> rows_;                 // in the order in which they came
    std::array<std::uint32_t, 1024> known_ = {};  // where among them the last ones were found
};

// The place of a repair in any record: without the occurrence of the field.
std::string GeneralPlace(const Repair& repair);

// Is given what a repair does, record by record.
class RepairReport {
public:
    virtual ~RepairReport() = default;

    // Whether it has a use for what became of a record. Several threads may ask at a time.
    virtual bool Needs(const std::vector<Repair>& repairs) const { return !repairs.empty(); }
    // Whether it has a use for the rows of the totals.
    virtual bool NeedsRows() const { return true; }
    // Comes, where it has a use for it, for every record in which anything was repaired or left;
    // the item's record is as it is after the repair.
    virtual void TakeRecord(const Item& item, const std::vector<Repair>& repairs) = 0;
    // Comes once, after the last record and before the records take their name: what was told must
    // be safe. Throws FileError.
    virtual void Complete(const RepairTotals& /*totals*/) {}
    // Comes after it. A dry run wrote no records.
    virtual void Finish(const RepairTotals& totals, bool isDryRun) = 0;
};

}  // namespace quillory
