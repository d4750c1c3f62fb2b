#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zorby {

// A rectangle in a window, in pixels at 96 dots to the inch, from the window's upper left corner.
// A host may scale it, or lay the controls out itself in the order in which they are added.
struct ControlBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

enum class ControlKind : std::int32_t {
    kLabel,
    kGroup,  // a frame with a heading; its text is the heading
    kButton,
    kRadio,  // radio buttons that are added one after another exclude each other
    kCheck,
    kText,  // an edit box
    kList,  // entries of which one can be selected
    kTree,
};

// What a control is when it is added to a window. "&" in the text of a label, a group, a button, a
// radio button or a check box stands before the accelerator, and "&&" shows an ampersand.
struct ControlRow {
    ControlKind kind = ControlKind::kLabel;
    int id = 0;
    std::string_view text = {};
    ControlBox box = {};
};

// What a window tells the logic about a control (CommandTarget).
enum ControlNotice : std::int32_t {
    CN_Clicked = 0,           // a button, or the box of a tree item; also by the space key
    CN_SelectionChanged = 1,  // of a list
    CN_TextChanged = 2,       // of an edit box
    CN_Expanding = 3,         // a tree item is about to show its children
    CN_SetFocus = 4,
    CN_KillFocus = 5,
};

// What the library does with a control of the host's toolkit. A new control is shown and enabled.
// None of these operations is reported back to a CommandTarget: only what the user does is.
class ZORBY_EXPORT ControlPort {
public:
    virtual ~ControlPort() = default;

    virtual void Show(bool show) = 0;
    virtual void Enable(bool enable) = 0;
    virtual void SetFocus() = 0;
    virtual void SetText(std::string_view text) = 0;
    virtual std::string GetText() const = 0;
    // For radio buttons and check boxes.
    virtual void Check(bool check) = 0;
    virtual bool IsChecked() const = 0;
};

// An edit box. Positions are counted in bytes from 0.
class ZORBY_EXPORT TextPort : public ControlPort {
public:
    // Selects from `first` up to `last`, which isn't selected itself, puts the caret at the end and
    // scrolls to it. -1 and -1 select nothing. A position after the text counts as its end.
    virtual void Select(int first, int last) = 0;
    virtual void GetSelection(int& first, int& last) const = 0;
};

// A list of entries, each with a text and a number of the library's.
class ZORBY_EXPORT ListPort : public ControlPort {
public:
    // What is selected stays selected when other entries come and go.
    virtual void Insert(int index, std::string_view text, int data) = 0;
    virtual void Remove(int index) = 0;
    virtual int GetCount() const = 0;
    virtual std::string GetTextAt(int index) const = 0;
    virtual int GetDataAt(int index) const = 0;
    // -1 is no entry.
    virtual void Select(int index) = 0;
    virtual int GetSelected() const = 0;
};

// The number by which the library knows an item of a tree. No item has the number 0, which is the
// parent of the items at the top.
using TreeItem = int;
inline constexpr TreeItem kTreeRoot = 0;

enum class TreeBox : std::int32_t { kNone, kClear, kChecked, kPartly };

// A tree whose items have check boxes. The library holds the tree; the control only shows it.
class ZORBY_EXPORT TreePort : public ControlPort {
public:
    // `index` is the place among the children of the parent.
    virtual void Insert(TreeItem item, TreeItem parent, int index, std::string_view text) = 0;
    virtual void SetBox(TreeItem item, TreeBox box) = 0;
    // Lets the user open an item whose children are inserted only when it is (CN_Expanding).
    virtual void SetExpandable(TreeItem item, bool expandable) = 0;
    virtual void Expand(TreeItem item, bool expand) = 0;
    virtual void ScrollTo(TreeItem item) = 0;
    virtual void RemoveAll() = 0;
};

// The logic behind the controls of a window.
class ZORBY_EXPORT CommandTarget {
public:
    virtual ~CommandTarget() = default;

    // Handles what the user did (ControlNotice) to the control `id`; `item` is the item of a tree.
    // Returns 1 if this target knew what to do, else 0.
    virtual int OnCmdMsg(int id, int code, TreeItem item) = 0;
};

}  // namespace zorby
