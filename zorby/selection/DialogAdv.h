#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ModalDialog.h>

namespace zorby {

class COnlyWhenState;

// A dialog with a part that a button shows and hides: "&Advanced >>" and "<< &Advanced".
class ZORBY_EXPORT CDialogAdv : public ModalDialog {
public:
    static constexpr int kAdvanced = 1301;

    using ModalDialog::ModalDialog;

    bool IsAdvanced() const;
    // Shows the sentence of a condition, "Always" if it has none, in a label.
    void UpdateOnlyWhen(int label, const COnlyWhenState* state) const;

    virtual void OnButtonAdvanced();
    int OnCmdMsg(int id, int code, TreeItem item) override;

protected:
    void AddAdvancedButton(int left, int top);
    void SetAdvanced(bool advanced);
    // Shows or hides the part.
    virtual void ShowAdvanced(int show) = 0;

private:
    bool isAdvanced_ = false;
};

}  // namespace zorby
