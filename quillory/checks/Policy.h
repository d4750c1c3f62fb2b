#pragma once

#include <quillory/checks/Finding.h>
#include <zorby/checking/ZorbyProfileBits.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

enum PolicyKind : std::int32_t { kPolicyProfile, kPolicyBasic, kPolicyTLC, kPolicyCustom };

// What the findings shall count as.
struct PolicyChoice {
    PolicyKind kind = kPolicyProfile;
    // Keys of the profile by name, with or without "ZP_" or "ZP_RC_", and what their findings are:
    // 0 errors, 1 warnings, 2 nothing.
    std::vector<std::pair<std::string, int>> keys;
};

// Puts a policy in force for this process: the settings in memory follow it, the user's file stays
// as it is. A policy sets every key that it knows; custom makes all findings errors. Throws
// FileError for a key that decides about no finding, a value that is none, and a value that the
// policy doesn't leave to the user.
void PutInForce(const PolicyChoice& choice);

enum Verdict : std::int32_t { kMayGo = 0, kMayGoWithWarnings = 1, kMustStay = 2 };

// The policy in force when the object is made.
class Policy {
public:
    // Whether a finding counts at all, and as what.
    bool Wants(zorby::E_ERROR_CODE code) const {
        return bits_.GetErrors().Has(code) || bits_.GetWarnings().Has(code);
    }
    zorby::E_ERROR_CODE_SUB_TYPE SeverityOf(zorby::E_ERROR_CODE code) const {
        return bits_.GetErrors().Has(code) ? zorby::EST_Error : zorby::EST_Warning;
    }
    // What becomes of a record with these findings.
    Verdict VerdictOf(const std::vector<Finding>& findings) const;

private:
    zorby::CZorbyProfileBits bits_;
};

}  // namespace quillory
