#include <gtest/gtest.h>

#include <tests/zorby/editing/Editing.h>
#include <tuple>
#include <utility>

using namespace zorby;

namespace {

class EditPointer : public Editing {
protected:
    // What the overlay draws as selected.
    std::string Covered() const {
        std::string covered;
        for (const OverlayRun& run : box.overlay->runs) {
            if (run.isHighlighted) covered += run.text;
        }
        return covered;
    }
};

TEST_F(EditPointer, ADoubleClickSelectsAWord) {
    struct Case {
        const char* text;
        int position;
        const char* after;
    };
    const Case cases[] = {
        {"abc def", 1, "[abc |def"},
        {"abc def", 0, "[abc |def"},
        {"abc def", 4, "abc [def|"},
        {"abc def", 7, "abc [def|"},
        {"(abc)", 2, "([abc|)"},
        {"x (abc) y", 5, "x ([abc|) y"},
        {"(abc)", 0, "|(abc)"},
        {"", 0, "|"},
        {"a ", 2, "|a "},
        {"a  b", 2, "a [ |b"},
        {"caf\xE6 au", 3, "[caf\xE6 |au"},
    };
    for (const Case& c : cases) {
        edit.SetWindowTextA(c.text);
        edit.OnLButtonDblClk(At(c.position));
        EXPECT_EQ(Shown(), c.after) << c.text << " at " << c.position;
    }
}

TEST_F(EditPointer, AClickDoesNotPartALetterFromItsDiacritic) {
    for (const auto& [type, after] :
         {std::pair(kDisplaySIL, "e\xA4|x"), {kDisplayANSI, "e|\xA4x"}}) {
        CSSetDisplayType(type);
        edit.SetWindowTextA("e\xA4x");
        edit.OnLButtonDown(At(1), false);
        edit.OnLButtonUp(At(1));
        EXPECT_EQ(Shown(), after) << type;
    }
}

TEST_F(EditPointer, ADragSelects) {
    edit.SetWindowTextA("abcdef");
    edit.OnLButtonDown(At(4), false);
    edit.OnMouseMove(At(2), true);
    edit.OnMouseMove(At(1), true);
    edit.OnMouseMove(At(5), false);
    edit.OnLButtonUp(At(1));
    EXPECT_EQ(Shown(), "a|bcd[ef");
    edit.OnLButtonDown(At(6), true);
    EXPECT_EQ(Shown(), "abcd[ef|") << "with shift the other end stays";
}

TEST_F(EditPointer, AWordIsMarkedInRed) {
    edit.SetWindowTextA("the wrnog word");
    edit.SetSelInRed(4, 8, "wrnog");
    EXPECT_EQ(Shown(), "the wrnog| word");
    EXPECT_EQ(box.timesFocused, 1);
    const ControlBox& place = box.overlay->box;
    EXPECT_EQ(place.left, 4 * MemoryEdit::kCharWidth);
    EXPECT_EQ(place.width, 5 * MemoryEdit::kCharWidth);
    EXPECT_EQ(place.height, 15);
    EXPECT_EQ(box.overlay->runs.front().color, ControlColor{RedWord::kRed});

    const std::tuple<int, int, const char*> selections[] = {
        {0, 14, "wrnog"}, {5, 7, "rn"}, {0, 4, ""}, {0, 5, "w"},
        {8, 12, "g"},     {9, 12, ""},  {6, 6, ""},
    };
    for (const auto& [from, to, covered] : selections) {
        edit.SetSel(from, from);
        PressWithShift(EditKey::kRight, to - from);
        EXPECT_EQ(Covered(), covered) << from << " to " << to;
        EXPECT_TRUE(box.overlay->isShown);
    }
    Type("x");
    EXPECT_FALSE(box.overlay->isOpen) << "typing drops the mark";
    EXPECT_EQ(edit.MarkedWord(), nullptr);
}

TEST_F(EditPointer, TheRedWordFollowsTheText) {
    edit.SetWindowTextA(std::string(400, 'x'));
    edit.SetSelInRed(41, 42, "xx");
    EXPECT_EQ(box.overlay->box.top, int{MemoryEdit::kLineHeight});
    edit.OnVscroll();
    const int before = box.timesInvalidated;
    box.firstLine = 1;
    edit.OnVscroll();
    EXPECT_EQ(box.overlay->box.top, 0);
    EXPECT_EQ(box.timesInvalidated, before + 1);
    edit.OnVscroll();
    EXPECT_EQ(box.timesInvalidated, before + 1) << "nothing has changed";
    edit.SetSel(0, 1);
    box.firstLine = 1;
    edit.OnVscroll();
    EXPECT_EQ(box.timesInvalidated, before + 2) << "the selection has";
    box.overlay->isOpen = false;
    box.overlay->isShown = false;
    edit.OnVscroll();
    EXPECT_FALSE(box.overlay->isShown) << "its window is gone";
    Press(EditKey::kDelete);
    EXPECT_EQ(edit.MarkedWord(), nullptr);
}

TEST_F(EditPointer, WhatTheWordIsAndWhereIsTheHostsAffair) {
    edit.SetWindowTextA("ab");
    edit.SetSelInRed(-7, 99, "longer than the text");
    edit.EditSelectAll();
    PressWithShift(EditKey::kHome);
    edit.SetSelInRed(1, 0, "");
    edit.OnVscroll();
    EXPECT_EQ(Real(), "ab");
}

TEST_F(EditPointer, AWideMarginIsResetWithTheSize) {
    for (const auto& [before, after] : {std::pair(1, 1), {2, 0}, {9, 0}}) {
        box.leftMargin = before;
        edit.OnSize();
        EXPECT_EQ(box.leftMargin, after) << before;
    }
}

}  // namespace
