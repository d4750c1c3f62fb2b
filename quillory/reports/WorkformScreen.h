#pragma once

#include <quillory/reports/RecordScreen.h>
#include <quillory/reports/WorkformDocument.h>

#include <string>
#include <vector>

namespace quillory {

// Workforms as a person reads them: those of WorkformRow in columns (ID, name, material, and with
// `withBase` the base), and one of DescribeWorkform in full.
std::string WorkformRowsText(const std::vector<Document>& rows, bool withBase);
std::string WorkformScreenText(const Document& workform, const std::vector<CodedContent>& fields,
                               const ScreenOptions& screen);

}  // namespace quillory
