#include <zorby/controls/TreeWithCheckBoxes.h>
#include <zorby/platform/MemoryDialogs.h>

#include <gtest/gtest.h>

using namespace zorby;

namespace {

using Tree = CTreeWithCheckBoxes;
using Path = std::vector<std::string>;

// Such as "1[12]": the states of the items in their order, with those below in brackets.
std::string States(const Tree& tree, TreeItem parent = kTreeRoot) {
    std::string states;
    for (const TreeItem item : tree.GetChildren(parent)) {
        states += tree.GetItemSelection(item) == Tree::kNoBox
                      ? "-"
                      : std::to_string(tree.GetItemSelection(item));
        if (!tree.GetChildren(item).empty()) states += "[" + States(tree, item) + "]";
    }
    return states;
}

// Two branches of a parent with two leaves.
struct SmallTree : Tree {
    explicit SmallTree(int level2 = 1, int root = 1, int single = 0) {
        SetOptions(level2, root, single);
        for (const char* name : {"A", "Holdings"}) {
            const TreeItem top = InsertItem(kTreeRoot, name, 0);
            const TreeItem middle = InsertItem(top, "middle", 0);
            for (const char* leaf : {"one", "two"}) InsertItem(middle, leaf, 0);
        }
    }
    TreeItem At(const Path& path) const { return FindItem(path); }
};

TEST(TreeWithCheckBoxes, OptionsSayWhichItemsHaveABox) {
    EXPECT_EQ(States(SmallTree(1, 1)), "0[0[00]]0[0[00]]");
    EXPECT_EQ(States(SmallTree(0, 1)), "0[-[00]]0[-[00]]");
    EXPECT_EQ(States(SmallTree(1, 0)), "-[0[00]]0[0[00]]");
    EXPECT_EQ(States(SmallTree(0, 0)), "-[0[00]]0[0[00]]");
}

TEST(TreeWithCheckBoxes, ChecksGoDownAndUp) {
    SmallTree tree;
    int calls = 0;
    tree.InitializeSelChangedCallBack([&](WindowPort*) { ++calls; }, nullptr);
    tree.ChangeSelectionState(tree.At({"A", "middle", "one"}));
    EXPECT_EQ(States(tree), "2[2[10]]0[0[00]]");
    tree.ChangeSelectionState(tree.At({"A", "middle", "two"}));
    EXPECT_EQ(States(tree), "1[1[11]]0[0[00]]");
    tree.ChangeSelectionState(tree.At({"Holdings"}));
    EXPECT_EQ(States(tree), "1[1[11]]1[1[11]]");
    tree.ChangeSelectionState(tree.At({"A", "middle", "one"}));
    tree.ChangeSelectionState(tree.At({"A"}));
    EXPECT_EQ(States(tree), "0[0[00]]1[1[11]]") << "a partly checked item clears";
    tree.SetOneRootOnly(1);
    tree.ChangeSelectionState(tree.At({"A", "middle"}));
    EXPECT_EQ(States(tree), "1[1[11]]0[0[00]]");
    EXPECT_EQ(calls, 6);
    tree.ChangeSelectionState(99);
    EXPECT_EQ(calls, 6);
}

TEST(TreeWithCheckBoxes, SingleSelectionClearsAllOthers) {
    SmallTree tree(1, 0, 1);
    tree.ChangeSelectionState(tree.At({"A", "middle", "one"}));
    tree.ChangeSelectionState(tree.At({"Holdings", "middle", "two"}));
    EXPECT_EQ(States(tree), "-[0[00]]2[2[01]]");
}

TEST(TreeWithCheckBoxes, AControlShowsTheTree) {
    MemoryWindow window;
    SmallTree tree;
    tree.Attach(&window.AddTree({ControlKind::kTree, 1, {}, {}}));
    tree.PrePopulateSetup();
    const TreeItem top = tree.InsertItemSorted(kTreeRoot, "b", 0);
    const TreeItem below = tree.InsertItem(top, "leaf", 0);
    tree.InsertItemSorted(kTreeRoot, "A", 0);
    tree.ChangeSelectionState(below);
    tree.ExpandSelected();
    tree.ScrollFirstChecked();
    const MemoryTree& shown = *window.Tree(1);
    ASSERT_EQ(shown.ChildrenOf(kTreeRoot).size(), 2U);
    EXPECT_EQ(shown.ChildrenOf(kTreeRoot)[0]->text, "A");
    EXPECT_EQ(shown.Find({"b"})->box, TreeBox::kChecked);
    EXPECT_TRUE(shown.Find({"b"})->isExpanded);
    EXPECT_EQ(shown.scrolledTo, top);
}

}  // namespace
