#pragma once

#include <quillory/jobs/CheckReport.h>
#include <quillory/jobs/Reporter.h>
#include <quillory/reports/RecordWording.h>

#include <string>

namespace quillory {

// What a check's page has of a record.
struct CheckRecordHtml {
    std::string rows;     // of the table of findings
    std::string section;  // the findings in full, and the record with a line for each field
};

class CheckRecordPrinter {
public:
    // Takes the names of files from the reporter, and keeps the reference.
    explicit CheckRecordPrinter(const Reporter& reporter) : reporter_(reporter) {}

    // `id` is the record's own on the page.
    CheckRecordHtml Print(const CheckedRecord& record, const std::string& id);

private:
    const Reporter& reporter_;
    RecordWording wording_;
};

}  // namespace quillory
