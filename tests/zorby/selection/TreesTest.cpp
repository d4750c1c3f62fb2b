#include <zorby/selection/TreeFieldAndSub.h>
#include <zorby/selection/TreeForControlFields.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/zorby/selection/Selection.h>

using namespace zorby;

namespace {

using Tree = CTreeWithCheckBoxes;
using Path = std::vector<std::string>;

class Trees : public Selection {
protected:
    static std::string Selected(const CTreeFieldAndSub& tree) {
        std::string text = "old";
        tree.GetSelected(text);
        return text;
    }

    // The texts of the children, divided by blanks.
    static std::string Names(const Tree& tree, const Path& path) {
        std::string names;
        for (const TreeItem item : tree.GetChildren(tree.FindItem(path))) {
            names += (names.empty() ? "" : " ") + tree.GetItemText(item);
        }
        return names;
    }
};

TEST_F(Trees, GroupsHoldTheFieldsThatTheFormatKnows) {
    SetEasy("Follett 2");
    CTreeFieldAndSub tree;
    tree.SetOptions(1, 1, 0, 0, 1);
    tree.PopulateFieldGroups("", 1, 0, 1);
    EXPECT_EQ(tree.GetChildren(kTreeRoot).size(), 11U);
    EXPECT_EQ(Names(tree, {"Main entries"}), "100 110 111 130");
    EXPECT_EQ(Names(tree, {"Titles"}), "245 240") << "in the order of the dictionary";
    EXPECT_EQ(Names(tree, {"Subjects"}), "600 650") << "sorted";
    EXPECT_EQ(Names(tree, {"Numbers and codes"}), "001 003 020");
    EXPECT_EQ(Names(tree, {"Series"}), "440 800 810 811 830");
    EXPECT_EQ(Names(tree, {"Holdings"}), "Call number Follett 2");
    const Path location = {"Location fields (including Electronic Location and Access)"};
    EXPECT_EQ(Names(tree, location), "856") << "852 is a field of the holdings";
    EXPECT_EQ(Selected(tree), "");

    SetHoldings("");
    tree.PopulateFieldGroups("", 1, 1, 0);
    EXPECT_EQ(tree.GetChildren(kTreeRoot).size(), 6U);
    EXPECT_EQ(tree.FindItem({"Holdings"}), kTreeRoot);
    EXPECT_EQ(Names(tree, {"Numbers and codes"}), "020");
    EXPECT_EQ(Names(tree, location), "852 856");
}

TEST_F(Trees, AlexandriasCallNumberIsOneOfTheNumbers) {
    SetEasy("Alexandria");
    CTreeFieldAndSub tree;
    tree.PopulateFieldGroups("", 0, 0, 0);
    EXPECT_EQ(Names(tree, {"Numbers and codes"}), "020 092 900");
    EXPECT_EQ(Names(tree, {"Notes"}), "500 505");
}

TEST_F(Trees, SelectionsComeBackAsTheyWentIn) {
    SetEasy("Follett 2");
    const struct {
        const char* in;
        const char* out;
    } kCases[] = {
        {"", ""},
        {"\\245T\\", "\\245T\\"},
        {"\\245ab\\", "\\245T\\"},  // all but $h, which isn't allowed
        {"\\245bh\\", "\\245b\\"},
        {"\\245h\\", ""},
        {"\\245T\\650x\\", "\\245T\\650x\\"},
        {"\\650zx\\500O\\", "\\500O\\650xz\\"},
        {"\\856\\", "\\856\\"},
        {"\\245X\\", ""},
        {"\\HLD201\\", "\\HLD201\\"},
        {"\\HLD200\\HLD201\\", "\\HLD000\\"},
        {"\\HLD0\\", "\\HLD000\\"},
        {"\\HLD000\\020U\\", "\\020U\\HLD000\\"},
        {"245a", ""},
    };
    for (const auto& c : kCases) {
        CTreeFieldAndSub tree;
        tree.SetOptions(1, 1, 0, 0, 1);
        tree.PopulateFieldGroups(c.in, 1, 0, 0);
        EXPECT_EQ(Selected(tree), c.out) << c.in;
        tree.DeselectAll();
        EXPECT_EQ(Selected(tree), "") << c.in;
    }
}

TEST_F(Trees, WhateverIsClickedComesBack) {
    SetEasy("Follett 2");
    std::minstd_rand random(1);
    for (int options = 0; options < 16; ++options) {
        const int single = options & 1;
        const auto populate = [&](CTreeFieldAndSub& tree, const std::string& selection) {
            tree.SetOptions(options & 2, options & 4, single, options & 8, 1);
            tree.PopulateFieldGroups(selection, 1, 0, 1);
        };
        CTreeFieldAndSub clicked;
        populate(clicked, "");
        std::uniform_int_distribution<TreeItem> items(1, 60);
        for (int click = 0; click < 40; ++click) {
            clicked.OnNotify(CN_Expanding, items(random));
            clicked.OnNotify(CN_Clicked, items(random));
            CTreeFieldAndSub again;
            populate(again, Selected(clicked));
            ASSERT_EQ(Selected(again), Selected(clicked)) << options << " after " << click;
        }
    }
}

TEST_F(Trees, SubfieldsComeOnDemand) {
    CTreeFieldAndSub tree;
    tree.SetOptions(1, 1, 0, 1, 1);
    tree.PopulateFieldGroups("", 0, 0, 0);
    const TreeItem title = tree.FindItem({"Titles", "245"});
    EXPECT_TRUE(tree.GetChildren(title).empty());
    tree.OnNotify(CN_Clicked, title);
    tree.OnNotify(CN_Expanding, title);
    EXPECT_EQ(Names(tree, {"Titles", "245"}), "$a $b $h");
    EXPECT_EQ(Selected(tree), "\\245T\\");
    tree.OnNotify(CN_Clicked, tree.FindItem({"Titles", "245", "$a"}));
    EXPECT_EQ(Selected(tree), "\\245bh\\");
}

TEST_F(Trees, AGroupReachesSubfieldsOfFieldsWithoutABox) {
    CTreeFieldAndSub tree;
    tree.SetOptions(0, 1, 0, 0, 1);
    tree.PopulateFieldGroups("", 0, 0, 0);
    tree.OnNotify(CN_Clicked, tree.FindItem({"Subjects"}));
    EXPECT_EQ(Selected(tree), "\\600a\\650axz\\");
}

TEST_F(Trees, OneSubfieldOfASingleSelectionIsNotTheField) {
    SetEasy("Dynix");
    CTreeFieldAndSub tree;
    tree.SetOptions(1, 0, 1, 0, 1);
    tree.PopulateFieldGroups("", 1, 0, 0);
    const TreeItem field = tree.FindItem({"Subjects", "600"});
    tree.OnNotify(CN_Expanding, field);
    tree.OnNotify(CN_Clicked, tree.GetChildren(field).front());
    EXPECT_EQ(Selected(tree), "\\600a\\");
    tree.OnNotify(CN_Clicked, tree.FindItem({"Holdings", "Dynix"}));
    EXPECT_EQ(Selected(tree), "\\HLD500\\");
}

class ControlFieldTree : public Trees {
protected:
    ControlFieldTree() {
        Start();
        CTemplate own;
        own.CloneFrom(*CTemplateList::TheOneAndOnly()->GetAt(2));
        own.SetName("Our maps");
        own.SaveYourself(0, 0);
        host.entries[100] = {"Our maps", Store(own)};
    }

    std::string AfterClicks(const std::string& settings, const std::vector<Path>& clicks) {
        MemoryWindow window;
        CTreeForControlFields tree;
        window.SetTarget(&tree);
        tree.InitializeYourself({0, 0, 200, 300}, window, settings);
        for (const Path& path : clicks) {
            EXPECT_TRUE(window.ClickItem(CTreeForControlFields::kTreeId, path)) << path.back();
        }
        std::string text;
        tree.GetCurrentSettings(text);
        return text;
    }
};

TEST_F(ControlFieldTree, MaterialsOrWorkforms) {
    std::string map;
    CTemplateList::GetMaterialTypeName(MTMap, map);
    const Path material = {"Material types", map};
    EXPECT_EQ(AfterClicks("", {}), "");
    EXPECT_EQ(AfterClicks("", {material}), "7\\");
    EXPECT_EQ(AfterClicks("1\\", {material}), "1\\7\\");
    EXPECT_EQ(AfterClicks("", {{"Workforms", map, "UD: Our maps"}}), "templates:\\100\\");
    EXPECT_EQ(AfterClicks("templates:\\3\\100\\", {}), "templates:\\3\\100\\");
    EXPECT_EQ(AfterClicks("templates:\\3\\", {material}), "7\\") << "one branch only";
    EXPECT_EQ(AfterClicks("7\\", {{"Workforms", map}}), "templates:\\3\\100\\");
    EXPECT_EQ(AfterClicks("7", {}), "");
}

TEST_F(ControlFieldTree, PathsNameTheLevels) {
    MemoryWindow window;
    CTreeForControlFields tree;
    window.SetTarget(&tree);
    tree.InitializeYourself({0, 0, 200, 300}, window, "templates:\\100\\");
    std::vector<std::string> paths;
    tree.GetSelNodePath(tree.GetChildren(kTreeRoot).front(), paths);
    EXPECT_EQ(paths, Path{"\\templates:\\7\\100\\"});
    EXPECT_TRUE(window.Click("Clear Selected"));
    paths.clear();
    tree.GetSelNodePath(tree.GetChildren(kTreeRoot).front(), paths);
    EXPECT_TRUE(paths.empty());
    tree.DrawControls(0);
    EXPECT_FALSE(window.Click("Clear Selected"));
}

TEST_F(ControlFieldTree, AnotherWindowGetsControlsOfItsOwn) {
    CTreeForControlFields tree;
    {
        MemoryWindow first;
        tree.InitializeYourself({0, 0, 200, 300}, first, "");
    }
    MemoryWindow second;
    second.SetTarget(&tree);
    tree.InitializeYourself({0, 0, 200, 300}, second, "7\\");
    EXPECT_EQ(second.Tree(CTreeForControlFields::kTreeId)->ChildrenOf(kTreeRoot).size(), 2U);
    EXPECT_FALSE(second.ClickItem(CTreeForControlFields::kTreeId, {}));
    EXPECT_TRUE(second.Click("Clear Selected"));
    std::string text;
    tree.GetCurrentSettings(text);
    EXPECT_EQ(text, "");
}

}  // namespace
