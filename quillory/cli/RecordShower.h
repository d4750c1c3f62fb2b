#pragma once

#include <quillory/cli/RecordScreen.h>
#include <quillory/cli/Reporter.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/Recoder.h>

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace quillory {

// How a person wants to see records.
struct ScreenChoice {
    std::size_t width = 0;
    bool widthGiven = false;  // else the terminal's
    bool names = false;
    bool decode = false;
};

void AddScreenOptions(CLI::App& command, ScreenChoice& choice);
// That of them that says how wide the lines are.
void AddWidthOption(CLI::App& command, ScreenChoice& choice);

// The width and the colours of what goes to standard output.
ScreenOptions ScreenOf(const ScreenChoice& choice);

// Puts in force what the names are taken from, if they are wanted. False if it is not there, which
// the user has been told.
bool LoadNames(const ScreenChoice& choice);

// Shows records on standard output as a person reads them.
class RecordShower {
public:
    // `from` is the character set of the records; auto as in Recoder.
    RecordShower(const ScreenChoice& choice, Charset from, Reporter& reporter);

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
