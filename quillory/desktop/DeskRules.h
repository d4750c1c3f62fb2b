#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/jobs/CheckSettingsFile.h>
#include <quillory/rules/Inspector.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

// What the records of a window are held against: all rules, with the weights that the policy and a
// file of settings give them, and those that the file has of its own.
class DeskRules {
public:
    // Policy, dictionaries and holdings system are in force. Keeps the reference. Throws FileError
    // and UsageError for a file that has a fault.
    DeskRules(const CodeLists& lists, const std::optional<std::string>& file);

    // The file of settings; nothing if there is none.
    const std::optional<std::string>& File() const { return file_; }
    // The rules of the file's own, and how much each of all weighs.
    std::span<const Rule> Own() const { return settings_.own.List(); }
    const RuleWeights& Weights() const { return weights_; }

    // What the rules say of a record, from the heaviest down.
    std::vector<Remark> Check(const Record& record);

private:
    std::optional<std::string> file_;
    Checker checker_;
    std::vector<Finding> findings_;
    CheckSettings settings_;
    RuleWeights weights_;
    Inspector inspector_;
};

}  // namespace quillory
