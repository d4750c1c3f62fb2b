#pragma once

#include <zorby/Export.h>
#include <zorby/platform/WindowPort.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// Called after a check or a text that is part of a selection has changed, with the window that was
// given along with it.
using SelChangedCallBack = std::function<void(WindowPort*)>;

// A tree whose items have check boxes of three states. It holds the items itself, and shows them
// through a TreePort if it has one, so that a tree works without a window. A number of an item that
// isn't there is ignored; reading one gives an empty text, 0, kNoBox or kTreeRoot.
class ZORBY_EXPORT CTreeWithCheckBoxes {
public:
    // The state of an item. The image in the tree is the state plus 1.
    enum State : std::int32_t { kNoBox = -1, kClear = 0, kChecked = 1, kPartly = 2 };

    CTreeWithCheckBoxes() = default;
    virtual ~CTreeWithCheckBoxes() = default;
    CTreeWithCheckBoxes(const CTreeWithCheckBoxes&) = delete;
    CTreeWithCheckBoxes& operator=(const CTreeWithCheckBoxes&) = delete;

    // Shows all items from now on in a control, which must outlive this tree or be detached with
    // null. It must be empty, and so must this tree.
    void Attach(TreePort* port);
    // `level2Checkable` and `rootCheckable` are 1 at first, `singleSelection` is 0. They hold for
    // items that are inserted later.
    void SetOptions(int level2Checkable, int rootCheckable, int singleSelection);
    // With 1, checking an item clears the other branches of the top level. It is 0 at first.
    void SetOneRootOnly(int oneRootOnly);
    void InitializeSelChangedCallBack(SelChangedCallBack callback, WindowPort* window);

    // Empties the tree.
    virtual void PrePopulateSetup();
    // Adds a clear item after its siblings and returns its number. `data` is for the caller.
    TreeItem InsertItem(TreeItem parent, std::string_view text, std::uint32_t data);
    // Adds an item before the first sibling whose text is greater, in any case of its letters.
    TreeItem InsertItemSorted(TreeItem parent, std::string_view text, std::uint32_t data);

    int GetItemSelection(TreeItem item) const;
    // Sets a state, unless the options give the item no box. An item "Holdings" at the top always
    // has one.
    virtual void SetItemSelection(TreeItem item, int state);
    // What a click on the box of an item does, or the space key: checks a clear item and clears any
    // other. What is below follows, what is above tells it, and the callback is called.
    void ChangeSelectionState(TreeItem item);
    // Gives all items below `item` its state.
    void UpdateChildren(TreeItem item);
    // Checks each item above `item` if all of its children are checked, partly if some are. With
    // single selection an item above is at most partly checked, since only one item is chosen.
    void UpdateParents(TreeItem item);

    void DeselectSiblings(TreeItem item);
    void DeselectAll() { DeselectAll(kTreeRoot); }
    // Clears an item and all below it.
    void DeselectAll(TreeItem item);
    // Clears the branches of the top level that don't have the item.
    void DeselectAllAtRootExcept(TreeItem item);

    // These only show.
    void ExpandParents(TreeItem item) const;
    void ExpandSelected() const;
    void ScrollFirstChecked() const;

    // Handles a ControlNotice about an item, and returns 1 if there was something to do.
    int OnNotify(int code, TreeItem item);

    TreeItem GetParent(TreeItem item) const;
    const std::vector<TreeItem>& GetChildren(TreeItem item) const;
    std::string GetItemText(TreeItem item) const;
    std::uint32_t GetItemData(TreeItem item) const;
    // 1 at the top.
    int GetLevel(TreeItem item) const;
    // Finds an item by the texts on the way to it, or returns kTreeRoot.
    TreeItem FindItem(const std::vector<std::string>& path) const;

protected:
    // Inserts the children of an item that gets them on demand; called before it opens, and before
    // a check must reach them.
    virtual void Populate(TreeItem) {}
    void NotifyChanged() const;
    void SetExpandable(TreeItem item) const;
    void Collapse(TreeItem item) const;
    bool IsSingleSelection() const { return singleSelection_; }

private:
    struct Node {
        TreeItem parent = kTreeRoot;
        std::string text;
        std::uint32_t data = 0;
        int state = kNoBox;
        std::vector<TreeItem> children;
    };

    bool Has(TreeItem item) const;
    const Node& At(TreeItem item) const { return nodes_[static_cast<std::size_t>(item)]; }
    Node& At(TreeItem item) { return nodes_[static_cast<std::size_t>(item)]; }
    TreeItem InsertAt(TreeItem parent, std::size_t index, std::string_view text,
                      std::uint32_t data);
    bool HasBox(TreeItem item) const;
    int StateBelow(TreeItem item) const;
    void Shown(TreeItem item) const;
    template <class Visit>
    void ForEachBelow(TreeItem item, Visit visit) const;

    TreePort* port_ = nullptr;
    bool level2Checkable_ = true;
    bool rootCheckable_ = true;
    bool singleSelection_ = false;
    bool oneRootOnly_ = false;
    SelChangedCallBack callback_;
    WindowPort* callbackWindow_ = nullptr;
    std::vector<Node> nodes_ = std::vector<Node>(1);  // the first one is above all items
};

}  // namespace zorby
