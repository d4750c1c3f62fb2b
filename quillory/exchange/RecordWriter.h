#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/Losses.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What to do with a field of over 9,999 bytes or a record of over 99,999.
enum Oversize : std::int32_t { kOversizeRefuse, kOversizeCut };

struct WriteResult {
    bool written = true;
    bool leaderMended = false;       // its structural bytes were others
    std::vector<Fault> faults = {};  // why it was not written, or not in full
};

WriteResult NotWritten(Fault fault);

// Writes records to an output in one of the forms. What a form can't give back is counted in
// `losses`.
class RecordWriter {
public:
    virtual ~RecordWriter() = default;
    virtual WriteResult Write(const Record& record, Losses& losses) = 0;
    // Writes what a form has behind its last record.
    virtual void Finish() {}
};

// A leader with the constants of the format in bytes 10-11 and 20-23: the one given, or `mended`,
// which the result then views.
std::string_view MendLeader(std::string_view leader, std::string& mended);

}  // namespace quillory
