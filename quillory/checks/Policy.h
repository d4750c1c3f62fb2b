#pragma once

#include <quillory/checks/Finding.h>
#include <zorby/checking/ZorbyProfileBits.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

enum PolicyKind : std::int32_t { kPolicyProfile, kPolicyBasic, kPolicyTLC, kPolicyCustom };

// A choice of what findings count as.
struct PolicyChoice {
    PolicyKind kind = kPolicyProfile;
    // Names of profile keys, with or without "ZP_" or "ZP_RC_", and what their findings count as:
    // 0 as errors, 1 as warnings, 2 as nothing.
    std::vector<std::pair<std::string, int>> keys;
};

// Puts a policy in force for this process. The settings in memory follow it; the user's file stays
// as it is. A policy sets every key that it knows, and "custom" makes all findings errors. Throws
// UsageError for a key without findings, for a value other than 0, 1 or 2, and for a value that the
// policy does not leave to the user.
void PutInForce(const PolicyChoice& choice);

// The keys of the profile that a policy other than that of the profile sets, and their values.
std::vector<std::pair<std::int32_t, int>> KeysSetBy(PolicyKind kind);

enum Verdict : std::int32_t { kMayGo = 0, kMayGoWithWarnings = 1, kMustStay = 2 };

// The policy that is in force when the object is made.
class Policy {
public:
    // Whether a finding counts at all, and as what.
    bool Wants(zorby::E_ERROR_CODE code) const {
        return bits_.GetErrors().Has(code) || bits_.GetWarnings().Has(code);
    }
    zorby::ErrorCodeSet CodesWanted() const;
    zorby::E_ERROR_CODE_SUB_TYPE SeverityOf(zorby::E_ERROR_CODE code) const {
        return bits_.GetErrors().Has(code) ? zorby::EST_Error : zorby::EST_Warning;
    }
    // What becomes of a record with these findings.
    Verdict VerdictOf(const std::vector<Finding>& findings) const;

private:
    zorby::CZorbyProfileBits bits_;
};

}  // namespace quillory
