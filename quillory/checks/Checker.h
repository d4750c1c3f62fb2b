#pragma once

#include <quillory/checks/FieldChecks.h>
#include <quillory/checks/FieldRules.h>
#include <quillory/checks/FindingSink.h>
#include <quillory/checks/RecordFacts.h>
#include <quillory/checks/RecordInHand.h>
#include <quillory/checks/TitleCase.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/Charset.h>

#include <array>
#include <limits>
#include <memory>
#include <vector>

namespace quillory {

struct CheckerOptions {
    Charset charset = kCharsetAuto;  // of the records; auto: each record is asked
    bool allowLocal = true;          // fields and subfields that the format leaves to libraries
    // Of fields; null for those of the dictionary and the holdings system in force.
    std::shared_ptr<const FieldRules> rules = nullptr;
};

// Checks bibliographic records for what stops or mars an export. Policy, dictionary and holdings
// system are those in force when the checker is made. Lengths are bytes in the record's own
// character set, since they are those of the communications format. Of records of another format
// (authority, holdings, classification, community information) only the lengths are checked.
//
// The rules stand in two tables: FieldChecks, which look at a field, and RecordRules, which look at
// the facts gathered from all fields.
class Checker {
public:
    explicit Checker(CheckerOptions options);

    // Replaces `findings` by those on the record that are wanted: in the order of the fields,
    // and then what the record lacks.
    void Check(const Record& record, std::vector<Finding>& findings);
    // The same for a record that was taken apart by the rules of its format.
    void Check(const Record& record, const RecordInHand& inHand, std::vector<Finding>& findings);

    // From now on, finds these, whatever the policy wants.
    void FindOnly(const zorby::ErrorCodeSet& codes);

    const Policy& GetPolicy() const { return policy_; }
    // With the rules of fields, which other checkers can share.
    const CheckerOptions& GetOptions() const { return options_; }

private:
    void CheckTitleCase(const Record& record, const RecordFacts& facts, FindingSink& findings);

    struct ChecksOfRole {
        std::vector<FieldCheck> checks;
        // Bytes of the smallest field for which there is one.
        std::size_t leastSize = std::numeric_limits<std::size_t>::max();
    };

    CheckerOptions options_;
    std::array<ChecksOfRole, kRoles> checks_;  // of fields, by their role
    Policy policy_;
    zorby::ErrorCodeSet wanted_;
    RecordInHand record_;
    TitleCase titleCase_;
};

}  // namespace quillory
