#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/detail/WordAt.h>

#include <algorithm>

namespace zorby {

void CEditMARCAlpha::OnLButtonDown(ControlPoint point, bool extend) {
    const int position = port_.GetPositionAt(point);
    SetSel(extend ? Anchor() : position, position);
}

void CEditMARCAlpha::OnLButtonUp(ControlPoint) {
    const Selection selection = GetSel();
    if (!CSInSIL() || !selection.IsEmpty() || !IsDiacriticAt(selection.start)) return;
    SetSel(selection.start + 1, selection.start + 1);
}

void CEditMARCAlpha::OnMouseMove(ControlPoint point, bool isLeftDown) {
    if (!isLeftDown) return;
    SetSel(Anchor(), port_.GetPositionAt(point));
    if (redWord_) redWord_->CheckForRedWordSelection();
}

void CEditMARCAlpha::OnLButtonDblClk(ControlPoint point) {
    const auto [start, end] = WordAt(RealText(), port_.GetPositionAt(point));
    if (start != end) SetSel(start, end);
}

void CEditMARCAlpha::SetSelInRed(int start, int end, std::string_view word) {
    const int length = GetWindowTextLengthA();
    const int last = std::clamp(end, 0, length);
    DropRedWord();
    redWord_ = std::make_unique<RedWord>(port_, std::clamp(start, 0, length), last, word);
    SetSel(last + 1, last + 1);
    redWord_->CheckForRedWordSelection();
    OnVscroll();
    port_.SetFocus();
}

void CEditMARCAlpha::OnVscroll() {
    if (redWord_) redWord_->Follow();
}

}  // namespace zorby
