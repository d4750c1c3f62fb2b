#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ModalDialog.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The settings that a holdings system needs, in a dialog for each group of systems. What a dialog
// is given by reference is what it starts with, and changes only if the user confirms. `extra` is
// the text "HoldingsExtraSettings"; keys that are of no concern to a dialog stay in it.
class ZORBY_EXPORT HoldingsGroupDialog : public ModalDialog {
public:
    enum Id : std::int32_t {
        kNextBarCode = 1201,
        kIndicators = 1202,
        kCallTag = 1203,
        kSubTags = 1204,
        kNextAccNo = 1205,
        kLocation = 1206,
        kSubfields = 1207,
    };

    void OnOK() override;

protected:
    // An edit box with a label.
    struct Field {
        int id;
        std::string_view label;
        std::string value;
    };

    HoldingsGroupDialog(std::string title, std::vector<Field> fields, WindowPort* parent);

    void OnInitDialog() override;
    // Gives the values back.
    virtual void Accept() = 0;
    const std::string& ValueOf(int id) const;

private:
    std::string title_;
    std::vector<Field> fields_;
};

class ZORBY_EXPORT CDlgHoldingsBasic : public HoldingsGroupDialog {
public:
    CDlgHoldingsBasic(std::string_view typeName, std::string& nextBarCode, WindowPort* parent);

protected:
    void Accept() override;

private:
    std::string& nextBarCode_;
};

// Indicators are shown and given back with "_" for a blank.
class ZORBY_EXPORT CDlgHoldingsDynix : public HoldingsGroupDialog {
public:
    CDlgHoldingsDynix(std::string& nextBarCode, std::string& extra, WindowPort* parent);

protected:
    void Accept() override;

private:
    std::string& nextBarCode_;
    std::string& extra_;
};

// The call tag takes up to three digits, and the sub-tags only valid subfield codes; other
// characters vanish as the user types.
class ZORBY_EXPORT CDlgHoldingsLWLP : public HoldingsGroupDialog {
public:
    CDlgHoldingsLWLP(std::string_view typeName, std::string& nextBarCode, std::string& extra,
                     WindowPort* parent);
    int OnCmdMsg(int id, int code, TreeItem item) override;

protected:
    void Accept() override;

private:
    void Filter(int id) const;

    std::string& nextBarCode_;
    std::string& extra_;
};

class ZORBY_EXPORT CDlgHoldingsFollettUnison : public HoldingsGroupDialog {
public:
    CDlgHoldingsFollettUnison(std::string& nextBarCode, std::string& extra, WindowPort* parent);

protected:
    void Accept() override;

private:
    std::string& nextBarCode_;
    std::string& extra_;
};

class ZORBY_EXPORT CDlgHoldingsMandarin : public HoldingsGroupDialog {
public:
    CDlgHoldingsMandarin(std::string& extra, WindowPort* parent);

protected:
    void Accept() override;

private:
    std::string& extra_;
};

}  // namespace zorby
