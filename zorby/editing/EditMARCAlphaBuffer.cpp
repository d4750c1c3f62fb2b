#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/detail/TypedCodes.h>
#include <zorby/platform/SignalPort.h>

namespace zorby {

namespace {

void BeepForMismatch() {
    CurrentSignalPort().Beep(500, 500);
}

}  // namespace

void CEditMARCAlpha::BufferMaintRemove(int from, int to) {
    if (!realText_) return;
    const int before = realText_->Length();
    realText_->Remove(from, to);
    RealTextReplaced(from, before - realText_->Length(), 0);
}

void CEditMARCAlpha::BufferMaintInsert(int position, std::string_view text) {
    if (!realText_) realText_.emplace();
    const int before = realText_->Length();
    realText_->Insert(position, text);
    RealTextReplaced(position, 0, realText_->Length() - before);
}

void CEditMARCAlpha::BufferMaintEditCut() {
    UndoStateSave();
    const Selection selection = GetSel();
    BufferMaintRemove(selection.start, selection.end);
}

void CEditMARCAlpha::BufferMaintEditPaste(std::string_view text) {
    const Selection selection = GetSel();
    BufferMaintRemove(selection.start, selection.end);
    BufferMaintInsert(selection.start, text);
}

bool CEditMARCAlpha::IsInRun(Selection selection) const {
    return selection.start >= undoStart_ && selection.end <= undoEnd_;
}

void CEditMARCAlpha::BufferMaintOnChar(unsigned char code) {
    if (code == kBackspace) {
        BufferMaintBackspace();
    } else {
        const Selection selection = GetSel();
        if (IsInRun(selection)) {
            ++undoEnd_;
        } else {
            undoStart_ = selection.start;
            undoEnd_ = selection.start + 1;
            UndoStateSave();
        }
        const char byte = static_cast<char>(code);
        BufferMaintEditPaste({&byte, 1});
    }
    DropRedWord();
}

void CEditMARCAlpha::BufferMaintBackspace() {
    const Selection selection = GetSel();
    if (!selection.IsEmpty()) {
        BufferMaintEditCut();
        return;
    }
    if (selection.start == 0) return;
    if (IsInRun(selection)) {
        --undoStart_;
        --undoEnd_;
    } else {
        undoStart_ = undoEnd_ = selection.start - 1;
        UndoStateSave();
    }
    BufferMaintRemove(selection.start - 1, selection.start);
}

void CEditMARCAlpha::BufferMaintOnKeyDown(EditKey key) {
    if (key != EditKey::kDelete) return;
    const Selection selection = GetSel();
    if (!selection.IsEmpty()) {
        BufferMaintEditCut();
    } else if (selection.start < GetWindowTextLengthA()) {
        if (!IsInRun(selection)) {
            undoStart_ = undoEnd_ = selection.start;
            UndoStateSave();
        }
        BufferMaintRemove(selection.start, selection.start + 1);
    }
    DropRedWord();
}

void CEditMARCAlpha::BufferMaintCheckChanges() {
    if (GetWindowTextLengthA() == port_.GetTextLength()) return;
    BeepForMismatch();
    ReloadControlFromBuffer();
    SetSel(0, 0);
    BeepForMismatch();
}

}  // namespace zorby
