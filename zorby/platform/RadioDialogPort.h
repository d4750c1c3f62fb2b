#pragma once

#include <zorby/Export.h>

#include <string>
#include <vector>

namespace zorby {

struct RadioOption {
    std::string text;
    bool isEnabled = true;
};

// Options of which one can be chosen.
struct RadioGroup {
    std::string heading;  // heading of the box around the group; empty for none
    std::string label;    // "&" stands before the accelerator
    std::vector<RadioOption> options;
    int chosen = -1;  // index of the chosen option, or -1
};

struct RadioDialog {
    std::string title;
    std::string policy;       // the line above the groups
    std::string explanation;  // empty for none
    std::vector<RadioGroup> groups;
};

// How the library asks the user to choose options in groups.
class ZORBY_EXPORT RadioDialogPort {
public:
    virtual ~RadioDialogPort() = default;

    // Shows a modal dialog and returns when it is closed. Returns true if the user confirmed, with
    // the user's choice in the `chosen` of each group. An option that isn't enabled can't be newly
    // chosen.
    virtual bool Ask(RadioDialog& dialog) = 0;
};

// Answers from a script and keeps the dialog that it was shown, for tests and for programs without
// a window.
class ZORBY_EXPORT ScriptedRadioDialog : public RadioDialogPort {
public:
    struct Answer {
        std::string label;
        int option;
    };

    bool Ask(RadioDialog& dialog) override;

    std::vector<Answer> answers;
    bool confirms = true;
    RadioDialog shown;
};

// Returns the port in force. The plain one is a ScriptedRadioDialog that never confirms.
ZORBY_EXPORT RadioDialogPort& CurrentRadioDialogPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetRadioDialogPort(RadioDialogPort* port);

}  // namespace zorby
