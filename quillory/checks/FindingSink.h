#pragma once

#include <quillory/checks/Finding.h>
#include <quillory/checks/Policy.h>

#include <vector>

namespace quillory {

// Takes the findings on one record, those of the codes that are wanted.
class FindingSink {
public:
    // Keeps the references.
    FindingSink(const Policy& policy, const zorby::ErrorCodeSet& wanted,
                std::vector<Finding>& findings)
        : policy_(policy), wanted_(wanted), findings_(findings) {}

    bool Wants(zorby::E_ERROR_CODE code) const { return wanted_.Has(code); }
    void Add(zorby::E_ERROR_CODE code, const Place& place) {
        if (Wants(code)) findings_.push_back({code, policy_.SeverityOf(code), place});
    }

private:
    const Policy& policy_;
    const zorby::ErrorCodeSet& wanted_;
    std::vector<Finding>& findings_;
};

}  // namespace quillory
