#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/repair/Repair.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace quillory {

// The repairs of one class at one element, or what was left there.
struct RepairRow {
    Repair first;  // of them
    std::uint64_t count = 0;
};

// What a job repaired in all its records.
struct RepairTotals {
    // By class, then what was repaired before what was left, then place.
    using Key = std::tuple<RepairClass, bool, std::string>;

    std::uint64_t records = 0;
    std::uint64_t recordsRepaired = 0;
    std::uint64_t repaired = 0;  // values and lengths
    std::uint64_t left = 0;      // values, fields and records
    std::map<Key, RepairRow> rows;

    // Adds what was counted of later records.
    void Add(const RepairTotals& later);
};

class RepairCounter {
public:
    RepairCounter() = default;
    RepairCounter(const RepairCounter&) = delete;
    RepairCounter& operator=(const RepairCounter&) = delete;

    // Counts one more record, with all that became of it.
    void Count(const std::vector<Repair>& repairs);
    void Add(const RepairTotals& later) { totals_.Add(later); }

    const RepairTotals& Totals() const { return totals_; }
    // What was counted since the last call.
    RepairTotals TakeTotals();

private:
    // What tells one row from another sooner than the text of its place does.
    struct Kind {
        RepairClass repairClass;
        bool isLeft;
        Place place;
        const Element* element;

        friend bool operator==(const Kind&, const Kind&) = default;
    };
    struct HashOfKind {
        std::size_t operator()(const Kind& kind) const;
    };

    RepairRow& RowOf(const Repair& repair);

    RepairTotals totals_;
    std::unordered_map<Kind, RepairRow*, HashOfKind> known_;
};

// The place of a repair in any record: without the occurrence of the field.
std::string GeneralPlace(const Repair& repair);

// Is given what a repair does, record by record.
class RepairReport {
public:
    virtual ~RepairReport() = default;

    // Whether it has a use for what became of a record. Several threads may ask at a time.
    virtual bool Needs(const std::vector<Repair>& repairs) const { return !repairs.empty(); }
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
