#include <zorby/editing/EditMARCAlpha.h>

#include <utility>

namespace zorby {

void CEditMARCAlpha::UndoStateSave() {
    undoText_ = realText_;
    if (undoText_) undoSelection_ = GetSel();
    UndoStateSaved();
}

int CEditMARCAlpha::UndoStateHasChanged() const {
    return undoText_ && undoText_->Text() != RealText() ? 1 : 0;
}

void CEditMARCAlpha::UndoStateClear() {
    undoText_.reset();
    undoStart_ = undoEnd_ = -1;
}

void CEditMARCAlpha::EditUndo() {
    BufferMaintCheckChanges();
    if (UndoStateHasChanged()) {
        const Selection present = GetSel();
        std::swap(undoText_, realText_);
        UndoStateSwapped();
        ReloadControlFromBuffer();
        port_.SetFocus();
        SetSel(undoSelection_.start, undoSelection_.end);
        undoSelection_ = present;
        undoStart_ = undoEnd_ = -1;
    }
    BufferMaintCheckChanges();
}

}  // namespace zorby
