#include <zorby/editing/EditMARCAlpha.h>

#include <algorithm>

namespace zorby {

namespace {

bool IsPage(EditKey key) {
    return key == EditKey::kPageUp || key == EditKey::kPageDown;
}

bool IsMove(EditKey key) {
    return key == EditKey::kUp || key == EditKey::kDown || key == EditKey::kLeft ||
           key == EditKey::kRight || key == EditKey::kHome || key == EditKey::kEnd;
}

}  // namespace

bool CEditMARCAlpha::OnKeyDown(const KeyStroke& stroke) {
    if (StepOverDiacritics(stroke)) return true;
    if (!isInRepeat_ && IsMove(stroke.key)) ExpandSelectionToIncludeDiacritics();
    TellRedWord(stroke.key);
    if (stroke.key == EditKey::kTab && (stroke.ctrl || stroke.shift)) return false;
    if (stroke.ctrl) {
        OnControlKey(stroke.key);
        return true;
    }
    return stroke.key == EditKey::kAlt ? OnAltKey() : OnPlainKey(stroke);
}

bool CEditMARCAlpha::OnAltKey() {
    const bool isPossible = CanPasteNextNumber() && !isNextNumberKeyBlocked_;
    if (isPossible) EditPasteNextNumber();
    return isPossible;
}

bool CEditMARCAlpha::OnPlainKey(const KeyStroke& stroke) {
    BufferMaintOnKeyDown(stroke.key);
    const bool isDone = HandleKey(stroke);
    BufferMaintCheckChanges();
    if (redWord_) {
        redWord_->Place();
        redWord_->CheckForRedWordSelection();
    }
    return isDone;
}

void CEditMARCAlpha::TellRedWord(EditKey key) {
    if (key == EditKey::kDelete) DropRedWord();
    if (redWord_ && (IsMove(key) || IsPage(key))) redWord_->Hide();
}

void CEditMARCAlpha::OnControlKey(EditKey key) {
    if (key == EditKey::kA && CanSelectAll()) EditSelectAll();
    if (key == EditKey::kC && CanCopy()) EditCopy();
    if (key == EditKey::kV && CanPaste()) EditPaste();
    if (key == EditKey::kX && CanCut()) EditCut();
    if (key == EditKey::kZ && UndoStateHasChanged()) EditUndo();
}

bool CEditMARCAlpha::HandleKey(const KeyStroke& stroke) {
    if (stroke.key == EditKey::kLeft) {
        MoveByByte(-1, stroke.shift);
    } else if (stroke.key == EditKey::kRight) {
        MoveByByte(1, stroke.shift);
    } else if (stroke.key == EditKey::kDelete) {
        Erase(1);
    } else if (IsMove(stroke.key) || IsPage(stroke.key)) {
        port_.MoveCaret(stroke.key, stroke.shift);
    } else {
        return false;
    }
    return true;
}

int CEditMARCAlpha::Anchor() const {
    int first = 0;
    int last = 0;
    port_.GetSelection(first, last);
    return port_.GetCaret() == first ? last : first;
}

// Without `extend` a selection collapses to its end in the direction of the step.
void CEditMARCAlpha::MoveByByte(int step, bool extend) {
    const int caret = port_.GetCaret();
    const int anchor = Anchor();
    const int moved = std::clamp(caret + step, 0, port_.GetTextLength());
    if (extend) {
        SetSel(anchor, moved);
    } else if (anchor == caret) {
        SetSel(moved, moved);
    } else {
        const int edge = step < 0 ? std::min(anchor, caret) : std::max(anchor, caret);
        SetSel(edge, edge);
    }
}

// Removes the selection from the display text, or the byte before the caret (-1) or after it (1).
void CEditMARCAlpha::Erase(int step) {
    if (Anchor() == port_.GetCaret()) MoveByByte(step, true);
    port_.ReplaceSelection({});
}

}  // namespace zorby
