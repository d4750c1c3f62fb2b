#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ControlSet.h>

#include <string_view>

namespace zorby {

// What all dialogs have in common. A dialog gets what it starts with in its constructor, is shown
// in a window of the DialogPort in force, and has its results after DoModal returned kIdOk.
class ZORBY_EXPORT ModalDialog : public CommandTarget {
public:
    // The parent may be null, and must live while DoModal runs.
    explicit ModalDialog(WindowPort* parent) : parent_(parent) {}
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    // Shows the dialog until it ends, and returns kIdOk or kIdCancel.
    int DoModal();

    // The two buttons run OnOK and OnCancel; all else is for the dialog itself.
    int OnCmdMsg(int id, int code, TreeItem item) override;

    // The handlers of the two buttons may be called only while the dialog is shown.
    virtual void OnOK() { EndDialog(kIdOk); }
    virtual void OnCancel() { EndDialog(kIdCancel); }

protected:
    // Adds the controls to the window and fills them in.
    virtual void OnInitDialog() = 0;
    void EndDialog(int result) {
        if (window_) window_->End(result);
    }

    // While the dialog is shown:
    DialogWindowPort& Window() const { return *window_; }
    ControlSet& Controls() { return controls_; }
    const ControlSet& Controls() const { return controls_; }
    // Adds the buttons "OK" and "Cancel" side by side, with the upper left corner of "OK" given.
    void AddOkAndCancel(int left, int top);

private:
    WindowPort* parent_;
    DialogWindowPort* window_ = nullptr;
    ControlSet controls_;
};

}  // namespace zorby
