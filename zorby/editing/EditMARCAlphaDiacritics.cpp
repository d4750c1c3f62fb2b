#include <zorby/charset/Compare.h>
#include <zorby/charset/QmCode.h>
#include <zorby/controls/detail/FlagGuard.h>
#include <zorby/editing/EditMARCAlpha.h>

#include <cstddef>
#include <tuple>

namespace zorby {

bool CEditMARCAlpha::IsDiacriticAt(int position) const {
    if (position < 0 || position >= GetWindowTextLengthA()) return false;
    const char byte = RealText()[static_cast<std::size_t>(position)];
    return CSIsDiacritic(static_cast<unsigned char>(byte)) != 0;
}

bool CEditMARCAlpha::AtDiacritic(EditKey key, int offset) const {
    const Selection selection = GetSel();
    switch (key) {
        case EditKey::kLeft:
        case EditKey::kBackspace:
            return selection.start > 0 && IsDiacriticAt(selection.start - 1 + offset);
        case EditKey::kRight:
        case EditKey::kDelete:
            return IsDiacriticAt(selection.end + offset);
        default:
            return false;
    }
}

void CEditMARCAlpha::ExpandSelectionToIncludeDiacritics() {
    const Selection before = GetSel();
    Selection selection = before;
    if (selection.IsEmpty()) return;
    while (IsDiacriticAt(selection.end)) ++selection.end;
    while (IsDiacriticAt(selection.start - 1)) --selection.start;
    if (selection.start == before.start && selection.end == before.end) return;
    if (port_.GetCaret() == before.start) {
        SetSel(selection.end, selection.start);
    } else {
        SetSel(selection.start, selection.end);
    }
}

// Stops at once where nothing comes of what is sent: Ctrl with an arrow is swallowed, and a derived
// control may swallow more.
void CEditMARCAlpha::SendWhileAtDiacritic(EditKey key, const std::function<void()>& send) {
    const auto state = [this] {
        const Selection selection = GetSel();
        return std::tuple(selection.start, selection.end, port_.GetCaret(), GetWindowTextLengthA());
    };
    while (AtDiacritic(key, 0)) {
        const auto before = state();
        send();
        if (state() == before) return;
    }
}

bool CEditMARCAlpha::StepOverDiacritics(const KeyStroke& stroke) {
    const bool isLeft = stroke.key == EditKey::kLeft;
    const bool isDelete = stroke.key == EditKey::kDelete;
    if (!isLeft && !isDelete && stroke.key != EditKey::kRight) return false;
    if (isInRepeat_ || !CSInSIL() || (isDelete && !GetSel().IsEmpty())) return false;
    if (!AtDiacritic(stroke.key, isLeft ? 0 : 1)) return false;
    const FlagGuard repeat(isInRepeat_);
    const auto send = [this, &stroke] { OnKeyDown(stroke); };
    if (!isLeft) send();
    SendWhileAtDiacritic(stroke.key, send);
    if (isLeft) send();
    return true;
}

}  // namespace zorby
