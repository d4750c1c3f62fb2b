#include <zorby/editing/EditControls.h>

#include <gtest/gtest.h>

#include <tests/zorby/editing/Editing.h>

using namespace zorby;

namespace {

using EditTyping = Editing;
constexpr const char* kErase = "\x08";

TEST_F(EditTyping, BothTextsHoldWhatIsTyped) {
    struct Case {
        int displayType;
        const char* keys;
        const char* real;
        const char* display;
        std::size_t beeps;
    };
    const Case cases[] = {
        {kDisplaySIL, "Caf\xE6", "Caf\xE6", "Caf\xE6", 0},
        {kDisplayANSI, "Caf\xE6", "Caf\xE6", "Caf\xE9", 0},
        {kDisplayANSI, "\x80\xA4", "\x80\xA4", "\x7F\xB4", 0},
        {kDisplaySIL, "\xA4", "\x1F\xA4", "\x7F\xA4", 0},
        {kDisplayANSI, "\xA4", "\xA4", "\xB4", 0},
        {kDisplaySIL, "a\rb\x7F\x09\x1B", "ab", "ab", 2},
        {kDisplayNone, "ab", "", "", 2},
    };
    for (const Case& c : cases) {
        CSSetDisplayType(c.displayType);
        edit.SetWindowTextA("");
        signals.sounds.clear();
        Type(c.keys);
        EXPECT_EQ(Real(), c.real) << c.keys;
        EXPECT_EQ(box.text, c.display) << c.keys;
        EXPECT_EQ(signals.sounds.size(), c.beeps) << c.keys;
    }
}

TEST_F(EditTyping, AZeroKeyTypesNothing) {
    edit.SetWindowTextA("abc");
    edit.OnChar(0);
    EXPECT_EQ(Real(), "abc");
}

TEST_F(EditTyping, ARunOfTypingIsOneStepOfUndo) {
    edit.SetWindowTextA("");
    Type("title");
    edit.EditUndo();
    EXPECT_EQ(Real(), "");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "title|") << "a second undo redoes";

    Press(EditKey::kLeft, 3);
    Type("XY");
    EXPECT_EQ(Shown(), "tiXY|tle");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "ti|tle") << "only the last run";
    edit.EditUndo();
    EXPECT_EQ(Shown(), "tiXY|tle");

    Type(kErase);
    Type("Z");
    Press(EditKey::kDelete);
    EXPECT_EQ(Shown(), "tiXZ|le");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "tiXY|tle") << "what is erased within a run is part of it";
}

TEST_F(EditTyping, ARunEndsWhereItsTextEnds) {
    edit.SetWindowTextA("12");
    Press(EditKey::kRight);
    Type("ab\x08");
    Press(EditKey::kRight);
    Type("c");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "1a2|") << "after what was erased, a new run begins";
}

TEST_F(EditTyping, NothingToUndo) {
    EXPECT_EQ(edit.UndoStateHasChanged(), 0);
    edit.SetWindowTextA("abc");
    Type(kErase);
    Type("x");
    Type(kErase);
    EXPECT_EQ(edit.UndoStateHasChanged(), 0) << "the copy equals the text";
    Type("x");
    EXPECT_EQ(edit.UndoStateHasChanged(), 1);
    edit.UndoStateClear();
    EXPECT_EQ(edit.UndoStateHasChanged(), 0);
}

TEST_F(EditTyping, ADiacriticStaysWithItsLetter) {
    using Key = EditKey;
    struct Case {
        int displayType;
        int caret;
        Key key;
        const char* after;
    };
    // An e with two diacritics, then an x.
    const char* const text = "e\xA4\xB2x";
    const Case cases[] = {
        {kDisplaySIL, 0, Key::kRight, "e\xA4\xB2|x"},
        {kDisplaySIL, 3, Key::kLeft, "|e\xA4\xB2x"},
        {kDisplaySIL, 0, Key::kDelete, "|x"},
        {kDisplaySIL, 3, Key::kBackspace, "|x"},
        {kDisplaySIL, 4, Key::kBackspace, "e\xA4\xB2|"},
        {kDisplayANSI, 0, Key::kRight, "e|\xA4\xB2x"},
        {kDisplayANSI, 3, Key::kLeft, "e\xA4|\xB2x"},
        {kDisplayANSI, 0, Key::kDelete, "|\xA4\xB2x"},
        {kDisplayANSI, 3, Key::kBackspace, "e\xA4|x"},
    };
    for (const Case& c : cases) {
        CSSetDisplayType(c.displayType);
        edit.SetWindowTextA(text);
        edit.SetSel(c.caret, c.caret);
        if (c.key == Key::kBackspace) Type(kErase);
        Press(c.key);
        EXPECT_EQ(Shown(), c.after) << c.displayType << " " << static_cast<int>(c.key);
        EXPECT_EQ(box.GetTextLength(), edit.GetWindowTextLengthA());
    }
}

TEST_F(EditTyping, ALetterAndItsDiacriticsAreErasedInOneStep) {
    edit.SetWindowTextA("xe\xA4\xB2");
    edit.SetSel(4, 4);
    Type(kErase);
    EXPECT_EQ(Shown(), "x|");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "xe\xA4\xB2|");
}

TEST_F(EditTyping, ASelectionDoesNotSplitARunOfDiacritics) {
    for (const int type : {kDisplayANSI, kDisplaySIL}) {
        CSSetDisplayType(type);
        edit.SetWindowTextA("abe\xA4\xB2x");
        edit.SetSel(1, 3);
        Type(kErase);
        EXPECT_EQ(Shown(), "a|x") << type;
        edit.SetWindowTextA("be\xA4x");
        edit.SetSel(4, 3);
        PressWithShift(EditKey::kUp);
        EXPECT_EQ(Shown(), "be|\xA4x[") << "the caret stays at its end, type " << type;
    }
}

TEST_F(EditTyping, CtrlIsForCommandsAlone) {
    edit.SetWindowTextA(
        "e\xA4"
        "bc");
    edit.SetSel(2, 2);
    EXPECT_TRUE(edit.OnKeyDown({EditKey::kLeft, false, true})) << "and ends";
    EXPECT_TRUE(edit.OnKeyDown({EditKey::kDelete, false, true}));
    EXPECT_EQ(Shown(), "e\xA4|bc");
    EXPECT_FALSE(edit.OnKeyDown({EditKey::kTab, false, true})) << "the toolkit's";
    EXPECT_FALSE(edit.OnKeyDown({EditKey::kTab, true}));
    PressWithCtrl(EditKey::kA);
    PressWithCtrl(EditKey::kX);
    EXPECT_EQ(Real(), "");
    PressWithCtrl(EditKey::kZ);
    PressWithCtrl(EditKey::kZ);
    PressWithCtrl(EditKey::kV);
    EXPECT_EQ(Shown(),
              "e\xA4"
              "bc|");
}

TEST_F(EditTyping, TextsOutOfStepAreHealed) {
    edit.SetWindowTextA("abc");
    edit.SetSel(2, 2);
    box.text = "a";
    Type("x");
    EXPECT_EQ(box.text, Real());
    EXPECT_EQ(box.caret, 0);
    EXPECT_EQ(signals.sounds.size(), 2U);
    EXPECT_EQ(signals.sounds.front().milliseconds, 500);
}

TEST_F(EditTyping, TheLimitHoldsForWhatIsTyped) {
    EditControls dialog;
    dialog.AddField(1, edit);
    CEditMARCAlpha::DoInOnInitDialog(dialog);
    edit.SetWindowTextA(std::string(9998, 'x'));
    edit.SetSel(9998, 9998);
    Type("ab");
    EXPECT_EQ(edit.GetWindowTextLengthA(), 9999);
    EXPECT_EQ(signals.sounds.size(), 1U);
    PressWithShift(EditKey::kLeft);
    Type("b");
    EXPECT_EQ(Real().back(), 'b') << "in the place of a selection there is room";
}

TEST_F(EditTyping, TheBufferGrowsInSteps) {
    TextBuffer buffer("abc", 16);
    EXPECT_EQ(buffer.Size(), 19);
    buffer.Insert(3, std::string(14, 'x'));
    EXPECT_EQ(buffer.Size(), 19) << "18 bytes are needed";
    buffer.Insert(0, "x");
    EXPECT_EQ(buffer.Size(), 19 + 64) << "a buffer is larger than what is needed";
    buffer.Remove(1, 100);
    EXPECT_EQ(buffer.Text(), "x");
    EXPECT_EQ(TextBuffer().Size(), 64);
}

TEST_F(EditTyping, OutsideTheText) {
    TextBuffer buffer("abc", 0);
    buffer.Remove(2, 1);
    buffer.Remove(-5, 1);
    buffer.Insert(99, std::string_view("d\0e", 3));
    EXPECT_EQ(buffer.Text(), "bcd") << "a text ends at a zero byte";
}

}  // namespace
