#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ModalDialog.h>
#include <zorby/selection/FandSSelector.h>

#include <string>
#include <string_view>

namespace zorby {

// The dialog "Select Subfield", in which the user picks one subfield or element of holdings from a
// tree, or types it. A typed part of a control field with a code, such as "009a", is accepted.
class ZORBY_EXPORT CDlgSelectSubfield : public ModalDialog {
public:
    static constexpr int kHeading = 1101;
    static constexpr int kError = 1102;

    // `initialValue` is a path of the tree ("\245a\") or typed ("245a"). `heading` stands above the
    // controls. `treeValue` shows holdings in the tree. With `checkFormat`, the dictionary must
    // know what is typed.
    CDlgSelectSubfield(std::string_view initialValue, std::string_view heading, int treeValue,
                       WindowPort* parent, bool checkFormat);

    // Returns what was chosen: the path of the tree, or what was typed without the white space
    // around it.
    const std::string& GetResult() const;

    int OnCmdMsg(int id, int code, TreeItem item) override;
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    CFandSSelectorState StartingState() const;

    std::string initialValue_;
    std::string heading_;
    int treeValue_;
    bool checkFormat_;
    std::string result_;
    CFandSSelector selector_;
};

}  // namespace zorby
