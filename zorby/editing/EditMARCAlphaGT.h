#pragma once

#include <zorby/Export.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/GetTextFields.h>
#include <zorby/platform/WindowPort.h>

#include <string>
#include <string_view>
#include <utility>

namespace zorby {

// The field for the new value of a global edit: MARC text with get-text fields in it, each of which
// behaves like one character that can't be broken. The caret jumps over it, and it is selected and
// removed as a whole. Nothing can be cut or copied.
//
// The text and its fields are stored as one packed text of CKeysNValues with the separator "||":
// "Condition1", "Position1" and so on for the fields, and "Text" for the text without them. Two "|"
// side by side in the text would end it there, so they can't be typed. A position counts the
// descriptions before it: after a change of how subfields are named, or of the holdings system, a
// stored text with several fields has the later ones in other places.
//
// To fill in the fields for each record, a program without a window calls Initialize with `show`
// false and InitializeForProcessing, and per record SetGTSubfieldText and GetActualText.
class ZORBY_EXPORT CEditMARCAlphaGT : public CEditMARCAlpha {
public:
    using CEditMARCAlpha::CEditMARCAlpha;

    // Replaces the fields by those of a stored text, and with `show` the text of the control. The
    // displayed text also goes to `displayed` unless that is null. A condition without a position
    // is dropped.
    void Initialize(std::string_view state, bool show, std::string* displayed);
    // Returns the text to store.
    std::string GetState();
    // Makes the conditions of the fields ready. With `fromControl` the text comes from the control.
    void InitializeForProcessing(bool fromControl);

    // Returns the condition of a field, counted from 0, or null if there is no such field.
    COnlyWhenState* GetGTOnlyWhenState(const int& index);
    // Sets the value of a field for the current record.
    void SetGTSubfieldText(const int& index, std::string_view text);
    // Returns the text with the values in the places of the fields.
    std::string GetActualText() const;

    bool IsEmpty() const { return GetWindowTextLengthA() == 0; }
    const GetTextFields::Fields& Fields() const;

    // The button is enabled when this control gets the focus, and disabled when another field does.
    // It must outlive this object; null takes it away.
    void SetGetTextButton(ControlPort* button);
    // The window over which the dialog of a field opens. It must outlive this object, or be null.
    void SetDialogParent(WindowPort* parent);
    // Lets the user change the last field that begins in the selection, or make a new one in the
    // place of the selection.
    void OnGetTextButton();

    int CanCopy() const override { return 0; }
    int CanCut() const override { return 0; }
    // The text has no fields.
    void SetWindowTextA(std::string_view text) override;
    // An end of the selection that would be inside a field goes on to the field's far edge.
    void SetSel(int anchor, int caret) { SelectFrom(Port().GetCaret(), anchor, caret); }
    int OnCmdMsg(int id, int code, TreeItem item) override;

    void OnChar(unsigned char key) override;
    bool OnKeyDown(const KeyStroke& stroke) override;
    void OnLButtonDown(ControlPoint point, bool extend) override;
    void OnLButtonDblClk(ControlPoint point) override;
    void OnMouseMove(ControlPoint point, bool isLeftDown) override;
    void OnSetFocus() override;
    void OnKillFocus(const FocusTarget* gains) override;

protected:
    void RealTextReplaced(int from, int removed, int added) override;
    void UndoStateSaved() override { undoFields_ = fields_; }
    void UndoStateSwapped() override { std::swap(fields_, undoFields_); }

private:
    void ReadFields(std::string_view state, std::string& text);
    int Anchor() const;
    // Selects whole fields; the caret comes from a position.
    void SelectFrom(int position, int anchor, int caret);
    void SnapFrom(int position) { SelectFrom(position, Anchor(), Port().GetCaret()); }
    // For an edit box whose caret was moved by its host.
    void Snap() { SnapFrom(Port().GetCaret()); }
    bool IsDoubled(unsigned char key) const;
    // Removes a field with its description. Returns false for null.
    bool RemoveField(const GetTextField* field);

    GetTextFields fields_;
    GetTextFields undoFields_;  // those of the undo copy
    std::string plainText_;     // without descriptions
    ControlPort* button_ = nullptr;
    WindowPort* parent_ = nullptr;
    int dragStart_ = -1;  // what the mouse was pressed on, a position or a field
    int dragEnd_ = -1;
};

}  // namespace zorby
