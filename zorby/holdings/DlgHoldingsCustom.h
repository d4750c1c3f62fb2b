#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ModalDialog.h>

#include <string>
#include <string_view>

namespace zorby {

// The dialog in which the user says where custom holdings are kept: all fields ("852khim 949d"),
// the bar code ("852p") and the call number ("852khim").
class ZORBY_EXPORT CDlgHoldingsCustom : public ModalDialog {
public:
    static constexpr int kAllFields = 1271;
    static constexpr int kBarCode = 1272;
    static constexpr int kCallNumber = 1273;

    // `extra` is the text "HoldingsExtraSettings"; it changes only if the user confirms, and keeps
    // the keys of other settings.
    CDlgHoldingsCustom(std::string& extra, WindowPort* parent);

    // A text that isn't valid gets a message and the focus, and the dialog stays open.
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    bool Accepts(int id, std::string_view message) const;

    std::string& extra_;
};

}  // namespace zorby
