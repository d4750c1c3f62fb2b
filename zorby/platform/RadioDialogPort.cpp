#include <zorby/platform/RadioDialogPort.h>
#include <zorby/platform/detail/PortSlot.h>

#include <cstddef>

namespace zorby {

namespace {

struct NoDialog : ScriptedRadioDialog {
    NoDialog() { confirms = false; }
};

bool IsOpen(const RadioGroup& group, int option) {
    return option >= 0 && static_cast<std::size_t>(option) < group.options.size() &&
           group.options[static_cast<std::size_t>(option)].isEnabled;
}

}  // namespace

bool ScriptedRadioDialog::Ask(RadioDialog& dialog) {
    shown = dialog;
    for (const Answer& answer : answers) {
        for (RadioGroup& group : dialog.groups) {
            if (group.label == answer.label && IsOpen(group, answer.option)) {
                group.chosen = answer.option;
            }
        }
    }
    return confirms;
}

RadioDialogPort& CurrentRadioDialogPort() {
    return SlotOf<RadioDialogPort, NoDialog>().Get();
}

void SetRadioDialogPort(RadioDialogPort* port) {
    SlotOf<RadioDialogPort, NoDialog>().Set(port);
}

}  // namespace zorby
