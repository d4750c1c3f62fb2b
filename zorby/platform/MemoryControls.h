#pragma once

#include <zorby/Export.h>
#include <zorby/platform/ControlPort.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// Controls in memory, for tests and for programs without a window.

// What every control in memory shows.
struct ZORBY_EXPORT ShownControl {
    explicit ShownControl(const ControlRow& row)
        : kind(row.kind), id(row.id), text(row.text), box(row.box) {}
    virtual ~ShownControl() = default;

    // Whether the user can reach the control.
    bool IsOpen() const { return isShown && isEnabled; }

    ControlKind kind;
    int id;
    std::string text;
    ControlBox box;
    bool isShown = true;
    bool isEnabled = true;
    bool isChecked = false;
    int timesFocused = 0;
};

template <class Port>
class ZORBY_EXPORT MemoryControlOf : public Port, public ShownControl {
public:
    explicit MemoryControlOf(const ControlRow& row) : ShownControl(row) {}

    void Show(bool show) override { isShown = show; }
    void Enable(bool enable) override { isEnabled = enable; }
    void SetFocus() override { ++timesFocused; }
    void SetText(std::string_view newText) override { text = newText; }
    std::string GetText() const override { return text; }
    void Check(bool check) override { isChecked = check; }
    bool IsChecked() const override { return isChecked; }
};

using MemoryControl = MemoryControlOf<ControlPort>;

class ZORBY_EXPORT MemoryText : public MemoryControlOf<TextPort> {
public:
    using MemoryControlOf::MemoryControlOf;

    void Select(int first, int last) override;
    void GetSelection(int& first, int& last) const override;

    int selectedFrom = 0;
    int selectedTo = 0;
};

class ZORBY_EXPORT MemoryList : public MemoryControlOf<ListPort> {
public:
    struct Entry {
        std::string text;
        int data;
    };

    using MemoryControlOf::MemoryControlOf;

    void Insert(int index, std::string_view entry, int data) override;
    void Remove(int index) override;
    int GetCount() const override { return static_cast<int>(entries.size()); }
    // Outside the list the text is empty, the number 0, and nothing gets selected.
    std::string GetTextAt(int index) const override;
    int GetDataAt(int index) const override;
    void Select(int index) override;
    int GetSelected() const override { return selected; }
    // Returns the text of the selected entry, or an empty text.
    std::string SelectedText() const { return GetTextAt(selected); }

    std::vector<Entry> entries;
    int selected = -1;

private:
    bool Has(int index) const { return 0 <= index && index < GetCount(); }
};

class ZORBY_EXPORT MemoryTree : public MemoryControlOf<TreePort> {
public:
    struct Item {
        TreeItem number;
        TreeItem parent;
        std::string text;
        TreeBox box = TreeBox::kNone;
        bool isExpandable = false;
        bool isExpanded = false;
    };

    using MemoryControlOf::MemoryControlOf;

    void Insert(TreeItem item, TreeItem parent, int index, std::string_view itemText) override;
    void SetBox(TreeItem item, TreeBox newBox) override;
    void SetExpandable(TreeItem item, bool expandable) override;
    void Expand(TreeItem item, bool expand) override;
    void ScrollTo(TreeItem item) override { scrolledTo = item; }
    void RemoveAll() override;

    // Returns null if there is no such item.
    const Item* Find(TreeItem item) const;
    // Finds an item by the texts on the way to it, such as {"Titles", "Title statement"}.
    const Item* Find(const std::vector<std::string>& path) const;
    std::vector<const Item*> ChildrenOf(TreeItem parent) const;

    std::vector<Item> items;  // those of one parent are in their order
    TreeItem scrolledTo = kTreeRoot;

private:
    Item* FindToChange(TreeItem item);
};

}  // namespace zorby
