#pragma once

#include <quillory/exchange/Recoder.h>
#include <quillory/jobs/CheckReport.h>
#include <quillory/store/Summary.h>

namespace quillory {

// Puts records that were checked into words.
class RecordWording {
public:
    // The words that came with the record, or else those made of it, which hold until the next
    // call. Lines are made only if they are asked for.
    const RecordWords& Of(const CheckedRecord& record, bool withLines);

private:
    void MakeLines(const Record& record);

    Summarizer summarizer_;
    Recoder recoder_{{kCharsetAuto, kCharsetUtf8, {}}};
    RecordWords words_;
};

}  // namespace quillory
