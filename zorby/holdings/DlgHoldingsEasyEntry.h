#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ModalDialog.h>

#include <string>

namespace zorby {

// The dialog in which the user chooses one of the holdings systems in the dictionary, and its
// settings. What it is given by reference is what it starts with, and changes only if the user
// confirms. The button "C&hange..." opens the dialog with the settings of the chosen system.
class ZORBY_EXPORT CDlgHoldingsEasyEntry : public ModalDialog {
public:
    static constexpr int kTypes = 1251;
    static constexpr int kChange = 1252;

    CDlgHoldingsEasyEntry(std::string& type, std::string& nextBarCode, std::string& extra,
                          WindowPort* parent);

    int OnCmdMsg(int id, int code, TreeItem item) override;
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    std::string ChosenType() const;
    bool RunSettings();

    std::string& type_;
    std::string& nextBarCode_;
    std::string& extra_;
    std::string newBarCode_;
    std::string newExtra_;
};

}  // namespace zorby
