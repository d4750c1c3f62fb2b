#pragma once

#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/Record.h>
#include <quillory/store/RecordStore.h>

namespace quillory {

// Takes from records what lists and searches need. Recoder finds out their character set.
class Summarizer {
public:
    RecordSummary Summarize(const Record& record);

private:
    Recoder recoder_{{kCharsetAuto, kCharsetUtf8, {}}};
    Losses unused_;  // the record's own bytes lose nothing
    Record parts_;
};

}  // namespace quillory
