#pragma once

#include <quillory/jobs/CheckReport.h>

#include <string>

namespace quillory {

// A row of HTML for each rule that was broken, the heaviest first, and of those the most frequent.
std::string CheckRuleRows(const CheckTotals& totals);

}  // namespace quillory
