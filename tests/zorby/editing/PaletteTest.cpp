#include <zorby/charset/KeyTable.h>
#include <zorby/editing/ButtonAlphabet.h>
#include <zorby/editing/ButtonWildcard.h>
#include <zorby/editing/EditControls.h>
#include <zorby/platform/MemoryButton.h>
#include <zorby/platform/MenuPort.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <tests/zorby/editing/Editing.h>
#include <utility>

using namespace zorby;

namespace {

constexpr int kButton = 5;

// A dialog with two fields, and a button for the palette.
class Palette : public Editing {
protected:
    Palette() {
        dialog.AddField(1, edit);
        dialog.AddField(2, second);
        dialog.AddButton(kButton, button);
        alphabet.InitializeYourself(kButton, dialog);
        box.target = &edit;
        box.focus = &focus;
    }

    // The middle of a cell.
    static ControlPoint In(int column, int row) { return {column * 20 + 10, row * 21 + 10}; }
    void Choose(int column, int row) {
        alphabet.OnLButtonDown();
        alphabet.Well()->OnLButtonDown(In(column, row));
        alphabet.Well()->OnLButtonUp(In(column, row));
    }

    MemoryFocus focus;
    MemoryButton button{kButton};
    CButtonAlphabet alphabet;
    MemoryEdit secondBox;
    CEditMARCAlpha second{secondBox};
    EditControls dialog;
};

TEST_F(Palette, CellsAndWhatTheyType) {
    struct Case {
        int column;
        int row;
        unsigned id;
        const char* name;
        const char* types;
    };
    const Case cases[] = {
        {0, 0, 10222, "a with acute", "\xDE"},
        {6, 0, 10260, "a with umlaut/dieresis", "a\xAA"},
        {0, 1, 10230, "e with acute", "\xE6"},
        {2, 1, 10256, "e with circumflex", "e\xA5"},
        {0, 5, 10228, "c with cedilla", "\xE4"},
        {2, 5, 10242, "n with tilde", "\xF2"},
        {3, 5, 10243, "N with tilde", "\xF3"},
        {13, 7, 10187, "Upadhmaniya", "\xBB"},
        {2, 8, 10266, "A with circle above", "A\xAC"},
        {10, 10, 10140, "U-hook", "\x8C"},
        {13, 12, 10221, "Superscript 9", "\xDD"},
        {4, 5, 0, "", ""},
        {11, 10, 0, "", ""},
        {8, 0, 0, "", ""},
        {14, 6, 0, "", ""},
        {-1, 6, 0, "", ""},
        {0, 13, 0, "", ""},
    };
    focus.Give(&edit);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.column << ", " << c.row);
        EXPECT_EQ(PaletteId(PaletteCellAt(c.column, c.row)), c.id);
        edit.SetWindowTextA("x");
        edit.SetSel(1, 1);
        Choose(c.column, c.row);
        EXPECT_EQ(Real(), std::string("x") + c.types);
        alphabet.OnLButtonDown();
        EXPECT_EQ(alphabet.Well()->OnToolHitTest(In(c.column, c.row)), c.name);
    }
}

TEST_F(Palette, EachSpecialCharacterIsInOneCell) {
    std::multiset<unsigned> ids;
    for (int row = 0; row < kPaletteRows; ++row) {
        for (int column = 0; column < kPaletteColumns; ++column) {
            const unsigned id = PaletteId(PaletteCellAt(column, row));
            if (id == 0) continue;
            ids.insert(id);
            EXPECT_NE(CharacterLongName(id), nullptr) << id;
        }
    }
    EXPECT_EQ(ids.size(), 139U);
    for (unsigned id = 10128; id <= 10266; ++id) EXPECT_EQ(ids.count(id), 1U) << id;
}

TEST_F(Palette, WhatIsNoCharacterIsTwoBlanks) {
    edit.SetWindowTextA("");
    edit.AddCharFromButton(10267);
    edit.AddCharFromButton(10127);
    edit.AddCharFromButton(10135);
    EXPECT_EQ(Real(), "    \x87");
}

TEST_F(Palette, TheButtonServesTheFieldWithTheFocus) {
    EXPECT_FALSE(button.isEnabled);
    EXPECT_FALSE(button.isTabStop);
    EXPECT_EQ(button.bitmaps.size(), 4U);
    alphabet.OnLButtonDown();
    EXPECT_EQ(button.grid, nullptr) << "no field has the focus";
    focus.Give(&edit);
    EXPECT_TRUE(button.isEnabled);
    focus.Give(&alphabet);
    EXPECT_EQ(alphabet.Target(), &edit) << "a click on the button leaves the field in charge";
    Choose(0, 0);
    EXPECT_EQ(Real(), "\xDE");
    EXPECT_EQ(focus.Owner(), &edit);
    EXPECT_FALSE(button.grid->isOpen);
    focus.Give(&second);
    EXPECT_EQ(alphabet.Target(), &second);
    focus.Give(nullptr);
    EXPECT_FALSE(button.isEnabled);
}

TEST_F(Palette, AFieldThatGoesIsForgotten) {
    auto third = std::make_unique<CEditMARCAlpha>();
    third->SetButtonAlphabet(&alphabet);
    third->OnSetFocus();
    alphabet.OnLButtonDown();
    third.reset();
    EXPECT_EQ(alphabet.Target(), nullptr);
    EXPECT_FALSE(button.grid->isOpen);
}

TEST_F(Palette, AFieldOutlivesItsButton) {
    {
        CButtonAlphabet brief;
        edit.SetButtonAlphabet(&brief);
    }
    edit.OnSetFocus();
    EXPECT_EQ(alphabet.Target(), nullptr) << "the field had changed to the other button";
}

TEST_F(Palette, AButtonWithoutItsBitmapsStaysAsItWas) {
    MemoryButton plain;
    plain.missing = {CButtonAlphabet::kBitmapFocused};
    dialog.AddButton(6, plain);
    CButtonAlphabet other;
    other.InitializeYourself(6, dialog);
    other.InitializeYourself(99, dialog);
    other.SetActiveFocus(&edit);
    other.OnLButtonDown();
    EXPECT_TRUE(plain.isEnabled);
    EXPECT_TRUE(plain.isTabStop);
    EXPECT_EQ(plain.grid, nullptr);
}

TEST_F(Palette, TheGridIsUsedWithKeysToo) {
    focus.Give(&edit);
    alphabet.OnLButtonDown();
    CPopupAlphaWell& well = *alphabet.Well();
    ASSERT_EQ(button.grid->cells.size(), 182U);
    EXPECT_EQ(button.grid->cells[0].strip, 198);
    EXPECT_EQ(button.grid->cells[1].stripLeft, 16);
    for (const EditKey key : {EditKey::kUp, EditKey::kLeft, EditKey::kDown, EditKey::kRight}) {
        EXPECT_TRUE(well.OnKeyDown(key)) << static_cast<int>(key);
    }
    EXPECT_FALSE(well.OnKeyDown(EditKey::kTab));
    EXPECT_TRUE(button.grid->cells[15].isSelected);
    well.OnEnter();
    EXPECT_EQ(Real(), "\xE7") << "E with acute";
    alphabet.OnLButtonDown();
    alphabet.Well()->OnEscape();
    EXPECT_FALSE(alphabet.Well()->IsOpen());
    alphabet.Well()->OnEnter();
    EXPECT_EQ(Real(), "\xE7") << "a closed grid types nothing";
}

class Wildcard : public Palette {
protected:
    MemoryControl control{{ControlKind::kButton, 8, {}, {}}};
    CButtonWildcard wildcard{control};
    MemoryMenus menus;
    MenusInForce menusInForce{menus};
};

TEST_F(Wildcard, TheMenuTypesAtTheStartOfTheSelection) {
    const std::pair<const char*, const char*> entries[] = {
        {"Any number of characters *", "a*|bc"},
        {"A single character ?", "a?|bc"},
        {"A question mark \\?", "a\\?|bc"},
        {"An asterisk \\*", "a\\*|bc"},
        {"Nothing", "a[b|c"},
    };
    wildcard.InitializeYourself(dialog, &edit);
    for (const auto& [entry, after] : entries) {
        edit.SetWindowTextA("abc");
        edit.SetSel(1, 2);
        menus.choices.emplace_back(entry);
        wildcard.OnLButtonDown({0, 0});
        EXPECT_EQ(Shown(), after) << entry;
    }
    EXPECT_EQ(focus.Owner(), &edit);
    wildcard.ButtonWildcardOnCmdMsg(2, CN_SetFocus);
    EXPECT_FALSE(control.isEnabled) << "one field has it for good";
}

TEST_F(Wildcard, TheFieldsThatAllowWildcardsTakeTurns) {
    wildcard.InitializeYourself(dialog, nullptr);
    second.SetWildcardsAllowed(1);
    struct Case {
        int id;
        int code;
        bool isEnabled;
    };
    const Case cases[] = {
        {1, CN_SetFocus, false}, {2, CN_TextChanged, false}, {2, CN_SetFocus, true},
        {1, CN_KillFocus, true}, {99, CN_KillFocus, true},   {2, CN_KillFocus, false},
    };
    wildcard.OnContextAstrisk();
    for (const Case& c : cases) {
        EXPECT_EQ(wildcard.ButtonWildcardOnCmdMsg(c.id, c.code), 0);
        EXPECT_EQ(control.isEnabled, c.isEnabled) << c.id << " " << c.code;
    }
    wildcard.OnContextOneormorecharacters();
    EXPECT_EQ(secondBox.text, "*") << "the field that had the focus last";
    EXPECT_EQ(Real(), "");
}

}  // namespace
