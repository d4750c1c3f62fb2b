#pragma once

#include <zorby/Export.h>
#include <zorby/platform/ControlPort.h>

#include <memory>
#include <string_view>

namespace zorby {

// The buttons that end a dialog, and the results of a dialog.
inline constexpr int kIdOk = 1;
inline constexpr int kIdCancel = 2;

// A window, or a part of one, that controls can be added to. It owns them.
class ZORBY_EXPORT WindowPort {
public:
    virtual ~WindowPort() = default;

    // Adds a label, a group, a button, a radio button or a check box.
    virtual ControlPort& AddControl(const ControlRow& row) = 0;
    virtual TextPort& AddText(const ControlRow& row) = 0;
    virtual ListPort& AddList(const ControlRow& row) = 0;
    virtual TreePort& AddTree(const ControlRow& row) = 0;
    virtual void RemoveControl(int id) = 0;
};

// The window of a modal dialog. It is as large as the boxes of the controls that it shows.
class ZORBY_EXPORT DialogWindowPort : public WindowPort {
public:
    virtual void SetTitle(std::string_view title) = 0;
    // Shows the window, and reports to `target` what the user does, until End is called. Closing
    // the window counts as a click on kIdCancel. Returns what End was given.
    virtual int Run(CommandTarget& target) = 0;
    virtual void End(int result) = 0;
};

// Where the library gets windows for its dialogs.
class ZORBY_EXPORT DialogPort {
public:
    virtual ~DialogPort() = default;

    // The parent is null for a dialog of the program's main window. The result is never null.
    virtual std::unique_ptr<DialogWindowPort> Open(WindowPort* parent) = 0;
};

// Returns the port in force. The plain one is a MemoryDialogs in which every dialog is cancelled.
ZORBY_EXPORT DialogPort& CurrentDialogPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetDialogPort(DialogPort* port);

}  // namespace zorby
