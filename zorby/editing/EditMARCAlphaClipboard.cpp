#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/detail/DisplayText.h>
#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/SignalPort.h>
#include <zorby/text/General.h>

#include <cstddef>

namespace zorby {

namespace {

// The last text that a control of this program put on the clipboard: the clipboard doesn't say
// whether a text is in the `Qm` code, but this one is.
std::string& LastCopy() {
    static std::string text;
    return text;
}

class WaitCursor {
public:
    WaitCursor() { CurrentSignalPort().ShowWaitCursor(true); }
    ~WaitCursor() { CurrentSignalPort().ShowWaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// What of a text on the clipboard goes into the real text.
std::string OwnOrPlain(const std::string& text) {
    if (CurrentClipboardPort().IsInQm() || text == LastCopy()) return text;
    std::string plain;
    CGeneral::TextToQmCharSet(text.data(), plain, static_cast<unsigned>(text.size()));
    return plain;
}

}  // namespace

void CEditMARCAlpha::BufferMaintCopyToClipboard() const {
    if (!realText_) return;
    const Selection selection = GetSel();
    LastCopy() = RealText().substr(static_cast<std::size_t>(selection.start),
                                   static_cast<std::size_t>(selection.end - selection.start));
    CurrentClipboardPort().SetText(LastCopy());
}

void CEditMARCAlpha::EditCopy() {
    BufferMaintCopyToClipboard();
    BufferMaintCheckChanges();
}

void CEditMARCAlpha::EditCut() {
    BufferMaintCopyToClipboard();
    EditClear();
}

void CEditMARCAlpha::EditClear() {
    BufferMaintEditCut();
    port_.ReplaceSelection({});
    BufferMaintCheckChanges();
    DropRedWord();
}

void CEditMARCAlpha::EditPaste() {
    const std::optional<std::string> text = CurrentClipboardPort().GetText();
    if (!text) return;
    const WaitCursor wait;
    UndoStateSave();
    const std::string added = OwnOrPlain(*text);
    BufferMaintEditPaste(added);
    port_.ReplaceSelection(DisplayText(added));
    DropRedWord();
    BufferMaintCheckChanges();
}

void CEditMARCAlpha::EditPasteNextNumber() {
    if (!nextNumber_) return;
    const std::string given = nextNumber_();
    const std::string number = given.substr(0, given.find('\0'));
    UndoStateSave();
    BufferMaintEditPaste(number);
    port_.ReplaceSelection(DisplayText(number));
    DropRedWord();
}

int CEditMARCAlpha::CanCut() const {
    return GetSel().IsEmpty() ? 0 : 1;
}

int CEditMARCAlpha::CanCopy() const {
    return GetSel().IsEmpty() ? 0 : 1;
}

int CEditMARCAlpha::CanPaste() const {
    return CurrentClipboardPort().HasText() ? 1 : 0;
}

int CEditMARCAlpha::CanPasteNextNumber() const {
    return nextNumber_ ? 1 : 0;
}

}  // namespace zorby
