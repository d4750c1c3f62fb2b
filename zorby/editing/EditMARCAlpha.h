#pragma once

#include <zorby/Export.h>
#include <zorby/editing/EditCommand.h>
#include <zorby/editing/RedWord.h>
#include <zorby/editing/TextBuffer.h>
#include <zorby/platform/EditPort.h>
#include <zorby/platform/FocusTarget.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zorby {

class CButtonAlphabet;
class EditControls;

// The field in which a cataloguer types MARC text. It keeps two texts of the same length, byte for
// byte in step: the real text in the `Qm` code, and the display text, made for the display type in
// force, in an edit box of the host's. A change is made to both. Positions are counted in bytes.
//
// The host gives this class what a person does: characters, keys, clicks, and changes of the focus.
// Where the two texts are found to differ in length, the real one is shown anew.
class ZORBY_EXPORT CEditMARCAlpha : public CommandTarget, public FocusTarget {
public:
    // The most bytes that a field of a MARC record can have.
    static constexpr int kTextLimit = 9999;
    static constexpr int kMaxFontHeight = 12;

    using NextNumber = std::function<std::string()>;
    struct Selection {
        int start = 0;
        int end = 0;  // isn't selected itself

        bool IsEmpty() const { return start == end; }
    };

    // A control without a window, which keeps its display text in memory.
    CEditMARCAlpha();
    // The port must outlive this object.
    explicit CEditMARCAlpha(EditPort& port);
    ~CEditMARCAlpha() override;
    CEditMARCAlpha(const CEditMARCAlpha&) = delete;
    CEditMARCAlpha& operator=(const CEditMARCAlpha&) = delete;

    // The real text. A text that is set ends at its first zero byte. The undo copy stays as it is:
    // a host that shows another field calls UndoStateClear.
    virtual void SetWindowTextA(std::string_view text);
    virtual void GetWindowTextA(std::string& text) const;
    virtual int GetWindowTextLengthA() const;

    // Makes the display text anew from the real text. The caret is then at its start.
    void ReloadControlFromBuffer();
    // Converts a text for display type 1, whatever the display type is. The target needs room for
    // the length of the source and a terminator.
    static void QmToDisplay(const char* source, char* target);
    static int InSIL();
    // Puts the printable ASCII characters of a text in the place of the selection, in the real text
    // only if `updateBuffer` is nonzero.
    void ReplaceSelAndBufferMaint(std::string_view text, int updateBuffer);

    // The selection, inside the real text.
    Selection GetSel() const;
    // The caret comes to be at `caret`, and the text from there to `anchor` is selected.
    void SetSel(int anchor, int caret);
    EditPort& Port();
    const EditPort& Port() const;

    // Commands, and whether each is possible now.
    void EditUndo();  // a second one redoes
    void EditCut();
    void EditCopy();
    void EditPaste();
    void EditClear();
    void EditPasteNextNumber();
    void EditSelectAll();
    virtual int UndoStateHasChanged() const;
    virtual int CanCut() const;
    virtual int CanCopy() const;
    virtual int CanPaste() const;
    virtual int CanPasteNextNumber() const;
    virtual int CanSelectAll() const;

    // Each enables the menu item of a command if the command is possible.
    void UpdateEditUndo(ControlPort& item) const { item.Enable(UndoStateHasChanged() != 0); }
    void UpdateEditCut(ControlPort& item) const { item.Enable(CanCut() != 0); }
    void UpdateEditCopy(ControlPort& item) const { item.Enable(CanCopy() != 0); }
    void UpdateEditPaste(ControlPort& item) const { item.Enable(CanPaste() != 0); }
    void UpdateEditClear(ControlPort& item) const { item.Enable(CanCut() != 0); }
    void UpdateEditPasteNextNumber(ControlPort& item) const {
        item.Enable(CanPasteNextNumber() != 0);
    }
    void UpdateEditSelectAll(ControlPort& item) const { item.Enable(CanSelectAll() != 0); }

    // The same by the number of a command (EditCommand).
    bool CanDo(int command) const;
    // Carries a command out if it is possible. Returns 0 if it isn't a command.
    int OnCmdMsg(int id, int code, TreeItem item) override;

    // Setup. What is given to the control must outlive it; null takes it away.
    void SetNextNumberCallback(NextNumber callback);
    void SetButtonAlphabet(CButtonAlphabet* button);
    // `menu` 0 is no context menu. With no target the control carries commands out itself.
    void SetContextMenu(CommandTarget* target, unsigned menu, unsigned submenu);
    void SetWildcardsAllowed(int allowed);
    int WildcardsAllowed() const;
    // What is typed goes no further than this; what is pasted may. 0 is no limit, as at first.
    void SetLimitText(int bytes);

    // The font that DoInOnInitDialog gives to the fields of all dialogs. It is copied; null is
    // none.
    static void SetEditFont(const CFont* font);
    // Sets up the fields of a dialog: font, limit, context menu, and the key for the next number.
    static void DoInOnInitDialog(EditControls& dialog);
    // A font higher than kMaxFontHeight is made that high.
    virtual void SetFont(const CFont& font, bool redraw);
    // Called when the display type may have changed, with the font for it. A diacritic at the start
    // of the text stands on a blank (0x1F) in display type 2 only.
    void EnsureCorrectFont(const CFont& font);

    // Types a character of the palette, by its number: 10000 and its code, or 10256 to 10266 for a
    // letter with a diacritic. Any other number types two blanks.
    void AddCharFromButton(unsigned id);

    // Marks the word from the first to the last position in red, and puts the caret after it.
    void SetSelInRed(int start, int end, std::string_view word);
    const RedWord* MarkedWord() const;

    // What a person does. A typed character is a key of CSKeyInfo, or 0x08 for backspace.
    virtual void OnChar(unsigned char key);
    // Returns false if the key is not for this control: one that types a character goes to OnChar,
    // and any other to the host's toolkit.
    virtual bool OnKeyDown(const KeyStroke& stroke);
    // With `extend` the selection goes on from where it began.
    virtual void OnLButtonDown(ControlPoint point, bool extend);
    virtual void OnLButtonUp(ControlPoint point);
    virtual void OnLButtonDblClk(ControlPoint point);
    virtual void OnMouseMove(ControlPoint point, bool isLeftDown);
    void OnContextMenu(ControlPoint point);
    void OnSetFocus() override;
    void OnKillFocus(const FocusTarget* gains) override;
    // After the text was scrolled or the edit box has a new size.
    void OnVscroll();
    void OnSize();

    void UndoStateClear();

protected:
    void UndoStateSave();
    // These change the real text alone.
    void BufferMaintRemove(int from, int to);
    void BufferMaintInsert(int position, std::string_view text);
    void BufferMaintEditCut();
    void BufferMaintEditPaste(std::string_view text);
    void BufferMaintOnChar(unsigned char code);
    void BufferMaintOnKeyDown(EditKey key);
    void BufferMaintCopyToClipboard() const;
    void BufferMaintCheckChanges();

    // Returns whether the next byte in the direction of the key is a diacritic: before the
    // selection for left and backspace, after it for right and delete, moved on by `offset`.
    bool AtDiacritic(EditKey key, int offset) const;
    void ExpandSelectionToIncludeDiacritics();
    // The real text, up to the next change.
    std::string_view RealText() const;

    // What a derived class is told: `added` bytes of the real text took the place of `removed` ones
    // in an edit; the real text went into the undo copy, which may be none; both changed places.
    virtual void RealTextReplaced(int /*from*/, int /*removed*/, int /*added*/) {}
    virtual void UndoStateSaved() {}
    virtual void UndoStateSwapped() {}

private:
    bool IsDiacriticAt(int position) const;
    bool IsInRun(Selection selection) const;
    void BufferMaintBackspace();
    bool HasRoomFor(int bytes) const;
    void OnBackspace();
    void OnTyped(unsigned char key);
    void TypeCode(unsigned char code, unsigned char display);
    void TypeInBoth(unsigned char code, unsigned char display);
    void SendWhileAtDiacritic(EditKey key, const std::function<void()>& send);
    bool StepOverDiacritics(const KeyStroke& stroke);
    void TellRedWord(EditKey key);
    void OnControlKey(EditKey key);
    bool OnAltKey();
    bool OnPlainKey(const KeyStroke& stroke);
    bool HandleKey(const KeyStroke& stroke);
    void MoveByByte(int step, bool extend);
    void Erase(int step);
    int Anchor() const;
    void MendStart();
    void DropRedWord() { redWord_.reset(); }

    std::unique_ptr<EditPort> ownPort_;
    EditPort& port_;
    std::optional<TextBuffer> realText_;
    std::optional<TextBuffer> undoText_;
    Selection undoSelection_{-1, -1};
    int undoStart_ = -1;  // the stretch that the current run of typing has touched
    int undoEnd_ = -1;
    bool isInRepeat_ = false;  // while the control sends itself keys to cross a diacritic
    std::unique_ptr<RedWord> redWord_;
    NextNumber nextNumber_;
    CButtonAlphabet* buttonAlphabet_ = nullptr;
    CommandTarget* contextMenuTarget_ = nullptr;
    unsigned contextMenu_ = 0;
    unsigned contextSubmenu_ = 0;
    bool isNextNumberKeyBlocked_ = true;
    int wildcardsAllowed_ = 0;
    int limit_ = 0;
};

}  // namespace zorby
