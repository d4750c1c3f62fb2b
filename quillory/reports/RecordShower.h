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
    bool names = false;  // with the names that the dictionary in force has for fields and subfields
    bool decode = false;   // with the coded control fields spelled out
    bool damaged = false;  // what can be read of damaged records, too, marked as such
};

// Writes records as a person reads them, with a blank line between them.
class RecordShower {
public:
    // `from` is the character set of the records; auto as in Recoder. Keeps the references.
    RecordShower(const ShowOptions& options, Charset from, Output& output, Reporter& reporter);

    // Shows a record, and reports what is wrong with an item. A mark stands above a damaged one.
    // The record's text becomes UTF-8; its leader stays as it is.
    void Take(Item& item);
    // Reports the characters that could not be shown as they are.
    void Finish();

    // Findings, if anything was wrong.
    Status Result() const { return status_; }

private:
    void ShowDamaged(Item& item);
    void Write(Item& item, std::string_view mark);

    ScreenOptions screen_;
    Output& output_;
    Reporter& reporter_;
    Recoder recoder_;
    Losses losses_;
    std::optional<CodeLists> lists_;
    bool showsDamaged_;
    std::string label_;  // the leader as it came
    std::string text_;
    bool shown_ = false;
    Status status_ = kStatusWell;
};

}  // namespace quillory
