#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/jobs/Reporter.h>
#include <quillory/reports/RecordScreen.h>

#include <optional>
#include <string>

namespace quillory {

// What of records is shown, and how.
struct ShowOptions {
    std::size_t width = 0;  // columns of a line, 0 for no limit
    bool colour = false;
    bool names = false;   // with the names of fields and subfields, which are in force
    bool decode = false;  // with the coded control fields spelled out
};

// Shows records on standard output as a person reads them.
class RecordShower {
public:
    // `from` is the character set of the records; auto as in Recoder. Keeps the reporter.
    RecordShower(const ShowOptions& options, Charset from, Reporter& reporter);

    // A record, or the fault of one; the leader stays as it is.
    void Take(Item& item);
    // Says what could not be shown as it is.
    void Finish();

    // Findings, if anything was wrong.
    Status Result() const { return status_; }

private:
    void Show(Item& item);

    ScreenOptions screen_;
    Reporter& reporter_;
    Recoder recoder_;
    Output output_;
    Losses losses_;
    std::optional<CodeLists> lists_;
    std::string text_;
    bool shown_ = false;
    Status status_ = kStatusWell;
};

}  // namespace quillory
