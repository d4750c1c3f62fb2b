#include <zorby/conditions/ZorbySearch.h>
#include <zorby/selection/DlgSelectSubfield.h>
#include <zorby/selection/OtherMissingFieldsDlg.h>

#include <gtest/gtest.h>

#include <tests/zorby/selection/Selection.h>

using namespace zorby;

namespace {

using Id = CFandSSelector::Id;

class Selector : public Selection {
protected:
    void Open(const CFandSSelectorState& state) {
        selector.Destroy();
        selector.InitializeYourself(window, state, {0, 0, 300, 400}, 0);
        window.SetTarget(&selector);
    }

    // Opens the selector without radio buttons.
    void OpenWith(int wholeField, int only001And003, int below010, int subfields, int h245) {
        CFandSSelectorState state;
        state.allowWholeField = wholeField;
        state.allow001And003 = only001And003;
        state.allowBelow010 = below010;
        state.allowSubfields = subfields;
        state.allow245h = h245;
        Open(state);
        allow245h = h245;
    }

    // The code, and the limits of the part at fault.
    std::string Check(const std::string& text, bool checkFormat = false) {
        window.Text(Id::kEdit)->text = text;
        int first = 7;
        int last = 7;
        const int code = selector.SpecificFieldEditIsOK(first, last, allow245h, checkFormat);
        return std::to_string(code) + " " + std::to_string(first) + " " + std::to_string(last);
    }

    std::string Enabled() const {
        std::string enabled;
        for (const auto& control : window.controls) enabled += control->isEnabled ? '1' : '0';
        return enabled;
    }

    std::string Selection() {
        std::string tree = "old";
        std::string typed = "old";
        selector.GetSelection(tree, typed);
        return tree + "|" + typed;
    }

    MemoryWindow window;
    CFandSSelector selector;
    int allow245h = 0;
};

TEST_F(Selector, PartsOfATypedSelection) {
    const struct {
        const char* text;
        int start;
        const char* expected;
    } kCases[] = {
        {" , 245a", 0, "1 245a 3 7"},
        {"245", 4, "0  -1 -1"},
        {"245", 3, "1  3 3"},
        {"245a, 650x", 5, "1 650x 6 10"},
        {"", 0, "1  0 0"},
        {"245,", 4, "1  4 4"},
        {"a,b", 0, "1 a 0 1"},
        {"a", -1, "0  -1 -1"},
    };
    for (const auto& c : kCases) {
        std::string part = "old";
        int first = 9;
        int last = 9;
        const int found = CFandSSelector::GetPart(c.text, c.start, part, first, last);
        EXPECT_EQ(std::to_string(found) + " " + part + " " + std::to_string(first) + " " +
                      std::to_string(last),
                  c.expected)
            << c.text << " from " << c.start;
    }
}

TEST_F(Selector, TheGrammarOfATypedSelection) {
    const struct {
        const char* options;  // whole field, 001 and 003, below 010, subfields, 245 $h
        const char* text;
        const char* expected;
    } kCases[] = {
        {"00010", "245a, 650x", "0 -1 -1"},
        {"00010", "  245a  ", "0 -1 -1"},
        {"00010", "", "1 -1 -1"},
        {"00010", "245a,", "2 5 5"},  // an empty part sorts before 010
        {"00110", "245a,", "4 5 5"},
        {"00010", "650", "4 0 3"},
        {"10010", "650", "0 -1 -1"},
        {"00000", "600-699", "0 -1 -1"},
        {"00000", "600-69x", "4 0 7"},
        {"00000", "6000699", "4 0 7"},
        {"00010", "6000699", "0 -1 -1"},
        {"11111", "006", "2 0 3"},
        {"11111", "245a,008", "2 5 8"},
        {"00010", "009", "2 0 3"},
        {"00010", "009a", "3 0 4"},
        {"10110", "009", "0 -1 -1"},
        {"01010", "001 245a", "0 -1 -1"},
        {"01010", "001 245a 24", "4 9 11"},
        {"01010", "001a", "3 0 4"},
        {"00110", "003", "2 0 3"},
        {"10110", "001", "0 -1 -1"},
        {"11110", "003", "0 -1 -1"},
        {"00010", "245ah", "5 0 5"},
        {"00011", "245h", "0 -1 -1"},
        {"10010", "24a", "4 0 3"},
        {"00010", "2x5a", "4 0 4"},
        {"00010", "245$a", "4 0 5"},
        {"00000", "245a", "4 0 4"},
        {"00010", "24 245a", "4 0 2"},
        {"00010", "0 245a", "2 0 1"},
        {"00010", "245a\t650x", "4 0 9"},  // only blanks and commas divide
    };
    for (const auto& c : kCases) {
        const auto flag = [&](int at) { return c.options[at] - '0'; };
        OpenWith(flag(0), flag(1), flag(2), flag(3), flag(4));
        EXPECT_EQ(Check(c.text), c.expected) << c.options << " " << c.text;
    }
}

TEST_F(Selector, TheFormatMustKnowWhatIsTyped) {
    OpenWith(1, 1, 0, 1, 1);
    EXPECT_EQ(Check("245a 650", true), "0 -1 -1");
    EXPECT_EQ(Check("245q", true), "6 -1 -1");
    EXPECT_EQ(Check("999 245a", true), "6 -1 -1");
    EXPECT_EQ(Check("999 24x5", true), "6 4 8") << "the first fault stays";
    EXPECT_EQ(Check("999 001", true), "0 -1 -1") << "an allowed control field clears it";
    EXPECT_EQ(Check("999ab", true), "0 -1 -1") << "several codes aren't looked up";
    OpenWith(0, 0, 0, 1, 1);
    EXPECT_EQ(Check("999", true), "4 0 3");
    EXPECT_EQ(Check("99x", true), "6 0 3");
}

TEST_F(Selector, AllOrSelected) {
    CFandSSelectorState state;
    state.showAllSelected = 1;
    state.allSelected = 1;
    state.allowSubfields = 1;
    state.title = "Fields";
    state.examples = "245a\n650x";
    state.typedSelection = "24";
    int calls = 0;
    selector.InitializeSelChangedCallBack([&](WindowPort*) { ++calls; }, &window);
    Open(state);
    EXPECT_EQ(Enabled(), "111000001");
    EXPECT_EQ(selector.DoInOnOK(true), FSE_OK);
    EXPECT_EQ(Selection(), "|");
    EXPECT_TRUE(window.Click("Selected"));
    EXPECT_EQ(Enabled(), "111111111");
    EXPECT_EQ(Selection(), "|24");
    EXPECT_TRUE(window.Type(Id::kEdit, "245a 65"));
    EXPECT_TRUE(window.ClickItem(Id::kTree, {"Subjects", "650", "$x"}));
    EXPECT_EQ(selector.DoInOnOK(false), FSE_BAD_FORM);
    EXPECT_EQ(window.Text(Id::kEdit)->selectedFrom, 5);
    EXPECT_EQ(window.Text(Id::kEdit)->selectedTo, 7);
    EXPECT_EQ(window.Text(Id::kEdit)->timesFocused, 1);
    CZorbySearch search;
    selector.UpdateZorbySearch(search);
    EXPECT_EQ(search.m_strTree + search.m_strUser, "\\650x\\245a 65");
    EXPECT_TRUE(window.Click("Clear Selected"));
    EXPECT_EQ(selector.DoInOnOK(false), FSE_EMPTY);
    EXPECT_TRUE(window.Click("All"));
    EXPECT_EQ(Selection(), "|");
    EXPECT_EQ(calls, 5);
    EXPECT_GT(window.Find(Id::kEdit)->box.top, window.Find(Id::kTree)->box.top);
    EXPECT_EQ(window.Find(Id::kExamples)->box.height, 32);
}

TEST_F(Selector, ListOrTextBox) {
    CFandSSelectorState state;
    state.singleSelection = 1;
    state.allowSubfields = 1;
    state.selectFromList = 1;
    state.treeSelection = "\\245b\\";
    Open(state);
    EXPECT_EQ(Enabled(), "101110001");
    EXPECT_EQ(selector.DoInOnOK(false), FSE_OK);
    EXPECT_TRUE(window.Click("Select from text box"));
    EXPECT_EQ(Enabled(), "111101111") << "the tree is closed";
    EXPECT_EQ(Selection(), "|");
    EXPECT_TRUE(window.Type(Id::kEdit, "650x"));
    EXPECT_EQ(Selection(), "|650x");
    EXPECT_EQ(selector.EnableWindow(0), 1);
    EXPECT_EQ(Enabled(), "000000000");
    EXPECT_EQ(selector.EnableWindow(1), 0);
    EXPECT_EQ(Enabled(), "111101111");
    EXPECT_TRUE(window.Click("Select from list"));
    EXPECT_EQ(Selection(), "|");
    EXPECT_TRUE(window.ClickItem(Id::kTree, {"Titles", "245", "$a"}));
    EXPECT_TRUE(window.ClickItem(Id::kTree, {"Subjects", "650", "$z"}));
    EXPECT_EQ(Selection(), "\\650z\\|");
    EXPECT_EQ(window.Click("All"), false) << "not offered";
    selector.Destroy();
    EXPECT_TRUE(window.controls.empty());
    EXPECT_EQ(selector.EnableWindow(0), 1);
    EXPECT_EQ(selector.EnableWindow(1), 0) << "without controls, only the flag changes";
    EXPECT_EQ(Selection(), "\\650z\\|") << "as last read";
}

TEST_F(Selector, SelectSubfieldStartsWithWhatItIsGiven) {
    SetEasy("Follett 2");
    const struct {
        const char* initial;
        bool fromList;
        const char* result;
    } kCases[] = {
        {"245a", false, "245a"},      {"\\650x\\", true, "\\650x\\"},
        {"\\856\\", true, "\\856\\"}, {"\\HLD201\\", true, "\\HLD201\\"},
        {"009a", false, "009a"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.initial);
        dialogs.persons.push_back([&](MemoryWindow& shown) {
            EXPECT_EQ(shown.title, "Select Subfield");
            EXPECT_EQ(shown.ShownLabels(), "Pick\nField and subfield\nExamples:\n650x\n");
            EXPECT_EQ(shown.Find(Id::kGroup)->text, "Select subfield");
            EXPECT_EQ(shown.Find(Id::kFromList)->isChecked, c.fromList);
            EXPECT_EQ(shown.Find(Id::kFromText)->isChecked, !c.fromList);
            shown.Ok();
        });
        CDlgSelectSubfield dialog(c.initial, "Pick", 1, nullptr, false);
        EXPECT_EQ(dialog.DoModal(), kIdOk);
        EXPECT_EQ(dialog.GetResult(), c.result);
    }
}

TEST_F(Selector, SelectSubfieldSaysWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "You have not selected or entered a subfield."},
        {"008", "You can't enter control fields here."},
        {"650", "There's something wrong with the subfield you typed."},
        {"245q",
         "The subfield you entered is not a MARC field. In order to work with this subfield, you "
         "have to set it up as a user defined field."},
    };
    dialogs.persons.push_back([&](MemoryWindow& shown) {
        shown.Click("Select from text box");
        for (const auto& [typed, message] : cases) {
            SCOPED_TRACE(typed);
            shown.Type(Id::kEdit, typed);
            EXPECT_TRUE(shown.Ok());
            EXPECT_TRUE(shown.IsOpen());
            EXPECT_EQ(shown.Find(CDlgSelectSubfield::kError)->text, message);
            EXPECT_TRUE(shown.Find(CDlgSelectSubfield::kError)->isShown);
        }
        shown.Type(Id::kEdit, " 650x ");
        shown.Ok();
    });
    CDlgSelectSubfield dialog("", "", 0, nullptr, true);
    EXPECT_EQ(dialog.DoModal(), kIdOk);
    EXPECT_EQ(dialog.GetResult(), "650x");
    EXPECT_EQ(CDlgSelectSubfield("245a", "", 0, nullptr, true).DoModal(), kIdCancel);
}

TEST_F(Selector, AMissingFieldMustBeNamed) {
    dialogs.persons.push_back([&](MemoryWindow& shown) {
        EXPECT_EQ(shown.title, "Select missing field");
        EXPECT_EQ(shown.ShownLabels(), "Field\nExamples:\n245, 500, 650\n");
        shown.Ok();
        shown.Click("Select from text box");
        shown.Type(Id::kEdit, ", ,");
        shown.Ok();
        ASSERT_EQ(messages.messages.size(), 2U);
        EXPECT_EQ(messages.messages[0].text,
                  "You need to select a field from the list or type one in the text box.");
        EXPECT_EQ(messages.messages[1].text, "You must select a field or subfield to work with.");
        EXPECT_EQ(shown.Find(Id::kTree)->timesFocused, 1);
        shown.Type(Id::kEdit, "006");
        shown.Ok();
    });
    COtherMissingFieldsDlg typed("", 0);
    EXPECT_EQ(typed.DoModal(), kIdOk);
    EXPECT_EQ(typed.GetResult(), "006");

    dialogs.persons.push_back([](MemoryWindow& shown) { shown.Ok(); });
    COtherMissingFieldsDlg picked("\\500O\\", 0);
    EXPECT_EQ(picked.DoModal(), kIdOk);
    EXPECT_EQ(picked.GetResult(), "\\500O\\");
}

}  // namespace
