#pragma once

#include <quillory/checks/Finding.h>
#include <quillory/checks/Policy.h>

#include <vector>

namespace quillory {

// Takes the findings on one record: those that the policy in force wants, or all but what the
// dictionary says, which the rules about structure find with more to say.
class FindingSink {
public:
    // Keeps the references.
    FindingSink(const Policy& policy, bool takesAll, std::vector<Finding>& findings)
        : policy_(policy), takesAll_(takesAll), findings_(findings) {}

    bool Wants(zorby::E_ERROR_CODE code) const {
        const bool isOfDictionary = code == zorby::EC_NotMARC || code == zorby::EC_NotRepeatable;
        return takesAll_ ? !isOfDictionary : policy_.Wants(code);
    }
    void Add(zorby::E_ERROR_CODE code, const Place& place) {
        if (Wants(code)) findings_.push_back({code, policy_.SeverityOf(code), place});
    }

private:
    const Policy& policy_;
    bool takesAll_;
    std::vector<Finding>& findings_;
};

}  // namespace quillory
