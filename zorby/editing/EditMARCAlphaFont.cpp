#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditControls.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/detail/TypedCodes.h>

#include <algorithm>

namespace zorby {

namespace {

std::optional<CFont>& EditFont() {
    static std::optional<CFont> font;
    return font;
}

CFont Reduced(CFont font, int height) {
    font.height = std::clamp(font.height, -height, height);
    return font;
}

}  // namespace

void CEditMARCAlpha::SetEditFont(const CFont* font) {
    EditFont() = font ? std::optional(*font) : std::nullopt;
}

void CEditMARCAlpha::SetFont(const CFont& font, bool redraw) {
    port_.SetFont(Reduced(font, kMaxFontHeight), redraw);
}

void CEditMARCAlpha::EnsureCorrectFont(const CFont& font) {
    if (port_.GetFont() == font || !realText_) return;
    SetFont(font, true);
    MendStart();
    ReloadControlFromBuffer();
}

void CEditMARCAlpha::MendStart() {
    if (CSInSIL()) {
        if (!IsDiacriticAt(0)) return;
        realText_->Prepend(kBlankForDiacritic);
        RealTextReplaced(0, 0, 1);
    } else if (RealText().starts_with(kBlankForDiacritic) && IsDiacriticAt(1)) {
        BufferMaintRemove(0, 1);
    }
}

void CEditMARCAlpha::DoInOnInitDialog(EditControls& dialog) {
    for (CEditMARCAlpha* field : dialog.Fields()) {
        if (EditFont()) field->SetFont(*EditFont(), true);
        field->SetLimitText(kTextLimit);
        field->SetContextMenu(dialog.MainWindow(), 0, 1);
        field->isNextNumberKeyBlocked_ = false;
    }
}

}  // namespace zorby
