#pragma once

#include <quillory/checks/Finding.h>
#include <quillory/checks/Policy.h>

#include <vector>

namespace quillory {

// Takes the findings on one record, all or those that the policy in force wants.
class FindingSink {
public:
    // Keeps the references.
    FindingSink(const Policy& policy, bool takesAll, std::vector<Finding>& findings)
        : policy_(policy), takesAll_(takesAll), findings_(findings) {}

    bool Wants(zorby::E_ERROR_CODE code) const { return takesAll_ || policy_.Wants(code); }
    void Add(zorby::E_ERROR_CODE code, const Place& place) {
        if (Wants(code)) findings_.push_back({code, policy_.SeverityOf(code), place});
    }

private:
    const Policy& policy_;
    bool takesAll_;
    std::vector<Finding>& findings_;
};

}  // namespace quillory
