#pragma once

#include <quillory/jobs/CheckReport.h>

#include <string>

namespace quillory {

// "3 records checked: ...", in a line.
std::string CheckSummary(const CheckTotals& totals);

// A line for each rule that was broken, the heaviest first, and of those the most frequent.
std::string CheckRuleLines(const CheckTotals& totals);

}  // namespace quillory
