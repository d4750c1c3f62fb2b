#include <zorby/charset/QmCode.h>
#include <zorby/editing/EditMARCAlphaGT.h>
#include <zorby/editing/detail/TypedCodes.h>
#include <zorby/platform/SignalPort.h>

#include <cstddef>

namespace zorby {

int CEditMARCAlphaGT::Anchor() const {
    const Selection selection = GetSel();
    return Port().GetCaret() == selection.start ? selection.end : selection.start;
}

void CEditMARCAlphaGT::SelectFrom(int position, int anchor, int caret) {
    const bool isCaret = anchor == caret;
    const bool goesLeft = caret < position || (caret == position && caret < anchor);
    int start = 0;
    int end = 0;
    if (fields_.IsInUserDefinedGetTextField(caret, start, end, nullptr)) {
        caret = goesLeft ? start : end;
    }
    if (isCaret) {
        anchor = caret;
    } else if (fields_.IsInUserDefinedGetTextField(anchor, start, end, nullptr)) {
        anchor = caret < anchor ? end : start;
    }
    Port().Select(anchor, caret);
}

int CEditMARCAlphaGT::OnCmdMsg(int id, int code, TreeItem item) {
    Snap();
    return CEditMARCAlpha::OnCmdMsg(id, code, item);
}

void CEditMARCAlphaGT::OnChar(unsigned char key) {
    Snap();
    const Selection selection = GetSel();
    const bool isBackspace = key == kBackspace && selection.IsEmpty();
    if (isBackspace && RemoveField(fields_.EndingAt(selection.start))) return;
    if (IsDoubled(key)) {
        CurrentSignalPort().Beep(500, 100);
    } else {
        CEditMARCAlpha::OnChar(key);
    }
}

// Whether a "^" or "|" would stand next to another one, once the descriptions between them are
// gone.
bool CEditMARCAlphaGT::IsDoubled(unsigned char key) const {
    if (key != '^' && key != '|') return false;
    auto [start, end] = GetSel();
    while (const GetTextField* const field = fields_.EndingAt(start)) start = field->position;
    while (const GetTextField* const field = fields_.BeginningAt(end)) end = field->End();
    const std::string_view text = RealText();
    const char sign = static_cast<char>(key);
    return text.substr(0, static_cast<std::size_t>(start)).ends_with(sign) ||
           text.substr(static_cast<std::size_t>(end)).starts_with(sign);
}

bool CEditMARCAlphaGT::RemoveField(const GetTextField* field) {
    if (!field) return false;
    SetSel(field->position, field->End());
    CEditMARCAlpha::OnKeyDown({EditKey::kDelete});
    return true;
}

bool CEditMARCAlphaGT::OnKeyDown(const KeyStroke& stroke) {
    Snap();
    const Selection selection = GetSel();
    const bool isDelete = stroke.key == EditKey::kDelete && !stroke.ctrl && selection.IsEmpty();
    if (isDelete && RemoveField(fields_.BeginningAt(selection.start))) return true;
    const int caret = Port().GetCaret();
    const bool isDone = CEditMARCAlpha::OnKeyDown(stroke);
    SnapFrom(caret);
    // A diacritic after a field stays with it.
    const bool goesRight = stroke.key == EditKey::kRight && !stroke.ctrl;
    while (goesRight && CSInSIL() && AtDiacritic(EditKey::kRight, 0)) {
        CEditMARCAlpha::OnKeyDown(stroke);
    }
    return isDone;
}

void CEditMARCAlphaGT::OnLButtonDown(ControlPoint point, bool extend) {
    CEditMARCAlpha::OnLButtonDown(point, extend);
    const int pressed = extend ? Anchor() : Port().GetCaret();
    dragStart_ = dragEnd_ = pressed;
    const bool isField =
        fields_.IsInUserDefinedGetTextField(pressed, dragStart_, dragEnd_, nullptr);
    if (isField && !extend) {
        SetSel(dragStart_, dragEnd_);
    } else {
        SnapFrom(pressed);
    }
}

// What the mouse was pressed on stays selected, on whichever side of it the mouse is.
void CEditMARCAlphaGT::OnMouseMove(ControlPoint point, bool isLeftDown) {
    if (!isLeftDown) return;
    const int position = Port().GetPositionAt(point);
    if (dragStart_ <= position && position <= dragEnd_) {
        SetSel(dragStart_, dragEnd_);
        return;
    }
    const int anchor = position < dragStart_ ? dragEnd_ : dragStart_;
    Port().Select(anchor, anchor);
    CEditMARCAlpha::OnMouseMove(point, isLeftDown);
    SnapFrom(anchor);
}

void CEditMARCAlphaGT::OnLButtonDblClk(ControlPoint point) {
    int start = 0;
    int end = 0;
    if (!fields_.IsInUserDefinedGetTextField(Port().GetPositionAt(point), start, end, nullptr)) {
        CEditMARCAlpha::OnLButtonDblClk(point);
        SnapFrom(Anchor());
        return;
    }
    SetSel(start, end);
    OnGetTextButton();
}

void CEditMARCAlphaGT::OnSetFocus() {
    CEditMARCAlpha::OnSetFocus();
    if (button_) button_->Enable(true);
}

void CEditMARCAlphaGT::OnKillFocus(const FocusTarget* gains) {
    CEditMARCAlpha::OnKillFocus(gains);
    if (button_ && gains) button_->Enable(false);
}

}  // namespace zorby
