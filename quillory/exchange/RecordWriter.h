#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/Losses.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What to do with a field of over 9,999 bytes or a record of over 99,999. What is cut fits the
// format; in the historic form, the directory says 9,999 for any longer field, and data that is
// over 99,999 bytes is missing at the end.
enum Oversize : std::int32_t { kOversizeRefuse, kOversizeCut, kOversizeHistoric };

// How records are written, as far as a form has a choice.
struct WriterOptions {
    constexpr WriterOptions(Oversize which = kOversizeRefuse, bool withMnemonics = false)
        : oversize(which), mnemonics(withMnemonics) {}

    Oversize oversize;
    bool mnemonics;       // characters beyond ASCII as names in braces
    bool isPart = false;  // what a form has around its records is written by somebody else
};

struct WriteResult {
    bool written = true;
    bool leaderMended = false;       // the constants in it were wrong
    std::vector<Fault> faults = {};  // why it was not written, or not in full
    bool isApart = false;  // it was written, but to another file than the one of the records
};

WriteResult NotWritten(Fault fault);

// Writes records to an output in one of the forms. Characters that the form can't carry are counted
// in `losses`.
class RecordWriter {
public:
    virtual ~RecordWriter() = default;
    virtual WriteResult Write(const Record& record, Losses& losses) = 0;
    // Writes what a form has after its last record.
    virtual void Finish() {}
};

// A leader with the constants of ISO 2709 in bytes 10-11 and 20-23: the one given if it has them,
// or else a view of `mended`.
std::string_view MendLeader(std::string_view leader, std::string& mended);

}  // namespace quillory
