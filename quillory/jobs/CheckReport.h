#pragma once

#include <quillory/checks/Policy.h>
#include <quillory/exchange/Record.h>
#include <quillory/rules/NumberMet.h>
#include <quillory/rules/RemarkSink.h>

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// What a report shows of a record, in UTF-8.
struct RecordWords {
    struct Line {
        std::string tag;
        std::string text;
    };

    std::string controlNumber;
    std::string title;
    std::string material;
    std::string fault;        // of bytes that were read all the same; empty for none
    std::vector<Line> lines;  // the leader, without a tag, and each field; none if not known
};

using TypeAndLevel = std::pair<char, char>;  // Leader/06 and 07

TypeAndLevel TypeAndLevelOf(const Record& record);

// One record, and what was found on it.
struct CheckedRecord {
    const Item& item;
    const std::vector<Remark>& remarks;       // as far as the report wants them
    std::optional<Severity> heaviest;         // of all
    std::span<const NumberMet> numbers = {};  // by which others may be found to be the same
    // Where the record itself is no longer there; else null.
    const RecordWords* words = nullptr;
    // Where they are known, so that the record need not be looked at again.
    std::optional<TypeAndLevel> typeAndLevel = {};

    // By the heaviest of the findings; notes do no harm.
    Verdict GetVerdict() const;
};

// Records by verdict.
using VerdictCounts = std::array<std::uint64_t, 3>;

// What a whole run found.
struct CheckTotals {
    std::uint64_t records = 0;
    std::uint64_t damaged = 0;  // that can't be read
    VerdictCounts verdicts{};
    RemarkCounts findings;

    // The record, but not what was found on it.
    void Count(const CheckedRecord& record);
    std::vector<RuleCount> MostFrequentFirst() const;
    std::map<std::string, VerdictCounts> Materials() const;

private:
    VerdictCounts& CountsOfMaterial(const CheckedRecord& record);

    std::map<TypeAndLevel, VerdictCounts> materials_;
    std::map<std::string, VerdictCounts> namedMaterials_;
};

// Writes what a check finds, as it finds it.
class CheckReport {
public:
    virtual ~CheckReport() = default;

    // How many findings by each rule, from the first on, it asks for.
    virtual std::uint64_t FindingsWanted() const { return kAllRemarks; }
    // Whether it looks at records. If not, `item` of a record without fault may have its number,
    // offset and control number alone.
    virtual bool NeedsRecords() const { return true; }
    virtual void TakeRecord(const CheckedRecord& record) = 0;
    // Bytes that are no record, and what is wrong with them.
    virtual void TakeDamage(const Item& item, const std::string& reason) = 0;
    // The end of the report, for which there are no more records.
    virtual void Finish(const CheckTotals& totals) = 0;
};

}  // namespace quillory
