#pragma once

#include <zorby/Export.h>

#include <string>
#include <vector>

namespace zorby {

struct RadioOption {
    std::string text;
    bool isEnabled = true;
};

// Options of which one is chosen.
struct RadioGroup {
    std::string heading;  // the box that the group stands in; empty for none
    std::string label;    // "&" stands before the accelerator
    std::vector<RadioOption> options;
    int chosen = -1;  // index of the option, -1 for none
};

struct RadioDialog {
    std::string title;
    std::string policy;       // the line above the groups
    std::string explanation;  // empty for none
    std::vector<RadioGroup> groups;
};

// How the library asks the person at the program to choose in groups of options.
class ZORBY_EXPORT RadioDialogPort {
public:
    virtual ~RadioDialogPort() = default;

    // Shows a modal dialog and returns when it is closed: true if it was confirmed, with each
    // group's `chosen` as the person left it. An option that isn't enabled can't be chosen anew.
    virtual bool Ask(RadioDialog& dialog) = 0;
};

// Answers from a script and keeps what it was shown, for tests and for programs without a window.
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

// The port in force. Plain: a ScriptedRadioDialog that never confirms.
ZORBY_EXPORT RadioDialogPort& CurrentRadioDialogPort();

// Puts a port in force that the caller owns and keeps alive; null restores the plain one.
ZORBY_EXPORT void SetRadioDialogPort(RadioDialogPort* port);

}  // namespace zorby
