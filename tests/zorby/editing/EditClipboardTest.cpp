#include <zorby/editing/EditControls.h>
#include <zorby/platform/MenuPort.h>

#include <gtest/gtest.h>

#include <tests/zorby/editing/Editing.h>

using namespace zorby;

namespace {

class EditClipboard : public Editing {
protected:
    // Copies a text from another field of the same program.
    void CopyElsewhere(std::string_view text) {
        CEditMARCAlpha other;
        other.SetWindowTextA(text);
        other.EditSelectAll();
        other.EditCopy();
    }
};

TEST_F(EditClipboard, OnlyTextOfThisProgramKeepsItsSpecialCharacters) {
    struct Case {
        int displayType;
        bool isOwn;
        const char* text;
        const char* real;
        const char* display;
    };
    const Case cases[] = {
        {kDisplaySIL, true, "\xDE", "\xDE", "\xDE"},
        {kDisplayANSI, true, "\xDE\x80", "\xDE\x80", "\xE1\x7F"},
        {kDisplayANSI, false, "\xDE", "", ""},
        {kDisplayANSI, false, "a\tb\r\nc\x7F", "abc", "abc"},
    };
    for (const Case& c : cases) {
        CSSetDisplayType(c.displayType);
        CopyElsewhere(c.isOwn ? c.text : "something else");
        if (!c.isOwn) clipboard.text = c.text;
        edit.SetWindowTextA("[]");
        edit.SetSel(1, 1);
        edit.EditPaste();
        EXPECT_EQ(Real(), "[" + std::string(c.real) + "]") << c.text;
        EXPECT_EQ(box.text, "[" + std::string(c.display) + "]") << c.text;
        EXPECT_EQ(box.caret, 1 + static_cast<int>(std::string(c.real).size())) << c.text;
    }
    EXPECT_EQ(signals.timesWaited, 4);
    EXPECT_FALSE(signals.isWaiting);
    EXPECT_TRUE(signals.sounds.empty()) << "the texts stay in step";
}

TEST_F(EditClipboard, NothingToPaste) {
    edit.SetWindowTextA("abc");
    edit.EditSelectAll();
    EXPECT_EQ(edit.CanPaste(), 0);
    edit.EditPaste();
    EXPECT_EQ(Real(), "abc");
}

// A host that carries the clipboard over into the code says so, and all of its text is pasted.
TEST_F(EditClipboard, ATextThatTheHostHasCarriedOverIsPastedWhole) {
    class CarryingClipboard : public MemoryClipboard {
    public:
        bool IsInQm() const override { return true; }
    };
    CarryingClipboard carrying;
    const ClipboardInForce inForce(carrying);
    carrying.text = "Caf\xE6 a\xAB";
    edit.SetWindowTextA("()");
    edit.SetSel(1, 1);
    edit.EditPaste();
    EXPECT_EQ(Shown(), "(Caf\xE6 a\xAB|)");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "(|)");
}

TEST_F(EditClipboard, CutAndClearAreStepsOfUndo) {
    edit.SetWindowTextA("one two");
    edit.SetSel(3, 7);
    edit.EditCut();
    EXPECT_EQ(clipboard.text, " two");
    EXPECT_EQ(Shown(), "one|");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "one[ two|");
    clipboard.text = "kept";
    edit.EditClear();
    EXPECT_EQ(Real(), "one");
    EXPECT_EQ(clipboard.text, "kept");
}

TEST_F(EditClipboard, TheNextNumber) {
    edit.SetWindowTextA("No. ");
    edit.SetSel(4, 4);
    edit.EditPasteNextNumber();
    EXPECT_EQ(Real(), "No. ") << "there is no callback";
    int number = 41;
    edit.SetNextNumberCallback([&number] { return std::to_string(++number); });
    Press(EditKey::kAlt);
    EXPECT_EQ(Real(), "No. ") << "the key is blocked until the dialog is set up";
    EditControls dialog;
    dialog.AddField(1, edit);
    CEditMARCAlpha::DoInOnInitDialog(dialog);
    Press(EditKey::kAlt);
    EXPECT_EQ(Shown(), "No. 42|");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "No. |");
}

TEST_F(EditClipboard, PlainTextInThePlaceOfTheSelection) {
    edit.SetWindowTextA("abc");
    edit.SetSel(1, 2);
    edit.ReplaceSelAndBufferMaint("<\xDE>", 1);
    EXPECT_EQ(Shown(), "a<>|c");
    EXPECT_EQ(box.text, "a<>c");
}

TEST_F(EditClipboard, CommandsOfTheContextMenu) {
    struct Case {
        const char* choice;
        bool isPossible;
        const char* after;
    };
    const Case cases[] = {
        {"Undo", false, "a[bc|"}, {"Copy", true, "a[bc|"},
        {"Paste", true, "abc|"},  {"Paste Next Sequence Number", false, "abc|"},
        {"Clear", false, "abc|"}, {"Select All", true, "[abc|"},
        {"Cut", true, "|"},       {"Undo", true, "[abc|"},
    };
    MemoryMenus menus;
    const MenusInForce inForce(menus);
    edit.SetWindowTextA("abc");
    edit.SetSel(1, 3);
    edit.OnContextMenu({0, 0});
    EXPECT_TRUE(menus.shown.empty()) << "there is no menu at first";
    for (const unsigned submenu : {kSubmenuEdit, kSubmenuEditHoldings}) {
        edit.SetWindowTextA("abc");
        edit.UndoStateClear();
        edit.SetSel(1, 3);
        edit.SetContextMenu(nullptr, kEditContextMenu, submenu);
        for (const Case& c : cases) {
            menus.choices.emplace_back(c.choice);
            edit.OnContextMenu({0, 0});
            EXPECT_EQ(Shown(), c.after) << c.choice;
            const auto isThis = [&c](const MenuEntry& entry) {
                std::string text(entry.text.substr(0, entry.text.find('\t')));
                std::erase(text, '&');
                return text == c.choice;
            };
            const auto entry = std::ranges::find_if(menus.shown, isThis);
            ASSERT_NE(entry, menus.shown.end()) << c.choice;
            EXPECT_EQ(entry->isEnabled, c.isPossible) << c.choice;
        }
    }
    EXPECT_TRUE(EditMenu(kEditContextMenu, 2).empty());
}

TEST_F(EditClipboard, TheMainWindowGetsTheCommands) {
    struct MainWindow : CommandTarget {
        int OnCmdMsg(int id, int, TreeItem) override { return last = id; }
        int last = 0;
    };
    MainWindow window;
    MemoryMenus menus;
    const MenusInForce inForce(menus);
    menus.choices.emplace_back("Select All");
    edit.SetWindowTextA("abc");
    edit.SetContextMenu(&window, kEditContextMenu, kSubmenuEdit);
    edit.OnContextMenu({0, 0});
    EXPECT_EQ(window.last, kEditSelectAll);
    EXPECT_EQ(Shown(), "|abc") << "the window decides";
    EXPECT_EQ(box.timesFocused, 1);
}

}  // namespace
