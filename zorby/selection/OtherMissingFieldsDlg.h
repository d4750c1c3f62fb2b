#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ModalDialog.h>
#include <zorby/selection/FandSSelector.h>

#include <string>
#include <string_view>

namespace zorby {

// The dialog "Select missing field", in which the user names the field or subfield that a record
// must hold. Only an empty selection is refused: what is typed may name any field.
class ZORBY_EXPORT COtherMissingFieldsDlg : public ModalDialog {
public:
    // `selection` is a path of the tree or typed. `treeValue` shows holdings in the tree.
    COtherMissingFieldsDlg(std::string_view selection, int treeValue, WindowPort* parent = nullptr);

    // Returns what was chosen, in the same forms.
    const std::string& GetResult() const;

    int OnCmdMsg(int id, int code, TreeItem item) override;
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    void Refuse(std::string_view message);

    std::string selection_;
    int treeValue_;
    CFandSSelector selector_;
};

}  // namespace zorby
