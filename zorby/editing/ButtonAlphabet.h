#pragma once

#include <zorby/Export.h>
#include <zorby/editing/PopupAlphaWell.h>
#include <zorby/platform/ButtonPort.h>
#include <zorby/platform/FocusTarget.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace zorby {

class CEditMARCAlpha;
class EditControls;

// The button that opens the palette of special characters for the field that has the focus. While
// no field has it, the button is disabled.
class ZORBY_EXPORT CButtonAlphabet : public FocusTarget {
public:
    enum Bitmap : std::int32_t {
        kBitmapNormal = 1005,
        kBitmapSelected = 1006,
        kBitmapFocused = 1008,
        kBitmapDisabled = 1007,
    };

    CButtonAlphabet() = default;
    // The fields that have this button lose it.
    ~CButtonAlphabet() override;
    CButtonAlphabet(const CButtonAlphabet&) = delete;
    CButtonAlphabet& operator=(const CButtonAlphabet&) = delete;

    // Takes over the dialog's button with this number, and tells all fields of the dialog of
    // itself. If there is no such button, or a bitmap can't be loaded, the button stays as it was.
    void InitializeYourself(unsigned id, EditControls& parent);
    // The field that has got the focus, or null for anything else.
    void SetActiveFocus(CEditMARCAlpha* control);
    // Called by a field that gets this button, and by one that loses it.
    void Serve(CEditMARCAlpha& control);
    void Forget(const CEditMARCAlpha& control);
    CEditMARCAlpha* Target() const;

    // Opens the palette, if there is a target.
    void OnLButtonDown();
    // The palette that was opened last, or null.
    CPopupAlphaWell* Well();

    // The button itself takes nothing from the field that is in charge.
    void OnSetFocus() override {}
    void OnKillFocus(const FocusTarget*) override {}

private:
    BitmapButtonPort* button_ = nullptr;
    std::vector<CEditMARCAlpha*> fields_;
    CEditMARCAlpha* target_ = nullptr;
    std::unique_ptr<CPopupAlphaWell> well_;
};

}  // namespace zorby
