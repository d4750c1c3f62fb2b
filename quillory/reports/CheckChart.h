#pragma once

#include <quillory/reports/CheckReports.h>

#include <string>

namespace quillory {

// Bar charts of a check as inline SVG. Colours come from the classes "error", "warning", "note" and
// "ok" of the page.

// How often each rule was broken, and how much was found in each field: the most frequent first,
// and how many others there are.
std::string FindingsChart(const CheckTotals& totals);
std::string FieldsChart(const CheckTotals& totals);
// Records by verdict, for each material.
std::string MaterialsChart(const CheckTotals& totals);

}  // namespace quillory
