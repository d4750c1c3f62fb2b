#pragma once

#include <quillory/rules/RuleChoice.h>

#include <span>
#include <string>

namespace quillory {

// All rules of checking, and after them a library's own, each with its weight: as text for a
// person, and as a line of JSON each.
std::string RulesText(std::span<const Rule> ownRules, const RuleWeights& weights);
std::string RulesJsonl(std::span<const Rule> ownRules, const RuleWeights& weights);

}  // namespace quillory
