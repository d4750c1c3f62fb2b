#pragma once

#include <quillory/reports/CheckReports.h>

#include <string>

namespace quillory {

// Bar charts of a check as inline SVG. Colours come from the classes "error", "warning" and "ok" of
// the page.

// How often each kind of finding came, most frequent first.
std::string FindingsChart(const CheckTotals& totals, const Policy& policy);
// Records by verdict, for each material.
std::string MaterialsChart(const CheckTotals& totals);

}  // namespace quillory
