#include <zorby/charset/Compare.h>
#include <zorby/charset/Convert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <tests/zorby/editing/Editing.h>

using namespace zorby;

namespace {

bool IsDiacritic(const std::string& text, std::size_t at) {
    return at < text.size() && CSIsDiacritic(static_cast<unsigned char>(text[at])) != 0;
}

// A text and what is selected of it: what each act of a person makes of the two.
struct Model {
    std::string text;
    std::size_t start = 0;
    std::size_t end = 0;

    bool IsCaret() const { return start == end; }
    void Replace(const std::string& added) { text.replace(start, end - start, added); }
    void TypeCharacter(char code) {
        const std::string typed(1, code);
        const bool needsBlank = IsCaret() && start == 0 && IsDiacritic(typed, 0) && CSInSIL();
        Replace(needsBlank ? "\x1F" + typed : typed);
    }
    void Backspace() {
        if (IsCaret()) {
            if (start > 0) --start;
            while (CSInSIL() && start > 0 && IsDiacritic(text, start)) --start;
        } else {
            while (IsDiacritic(text, end)) ++end;
            while (start > 0 && IsDiacritic(text, start - 1)) --start;
        }
        Replace("");
    }
    void Delete() {
        if (IsCaret()) {
            end = std::min(end + 1, text.size());
            while (CSInSIL() && IsDiacritic(text, end)) ++end;
        }
        Replace("");
    }
};

class EditRandom : public Editing {
protected:
    EditRandom() {
        edit.SetNextNumberCallback([] { return "17"; });
        edit.SetWindowTextA("");
        box.columns = 20;
    }

    int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random); }
    ControlPoint Anywhere() { return {Below(200) - 10, Below(90) - 10}; }

    // Does something, and returns what should become of the text.
    std::string Act(const Model& model);
    std::string TypeAnything(Model model);
    std::string UseClipboard(Model model);
    std::string UndoAndRedo(const Model& model);
    std::string ChangeDisplay(const Model& model);
    void Move();

    void Check();

    std::mt19937 random{20};  // NOLINT: the same numbers each time
    std::set<std::string> past = {""};
    std::string copied;
};

std::string EditRandom::TypeAnything(Model model) {
    const int kind = Below(6);
    if (kind == 0) {
        Type("\x08");
        model.Backspace();
    } else if (kind == 1) {
        Press(EditKey::kDelete);
        model.Delete();
    } else {
        const bool isDiacritic = kind > 3;
        const int code = isDiacritic ? 0xA3 + Below(28) : kind == 2 ? 0x80 + Below(128) : 'a';
        Type(std::string(1, static_cast<char>(code)));
        model.TypeCharacter(static_cast<char>(code));
    }
    return model.text;
}

std::string EditRandom::UseClipboard(Model model) {
    switch (Below(5)) {
        case 0:
            edit.EditCopy();
            copied = model.text.substr(model.start, model.end - model.start);
            break;
        case 1:
            edit.EditCut();
            copied = model.text.substr(model.start, model.end - model.start);
            model.Replace("");
            break;
        case 2:
            clipboard.text = "x\t\xDEy" + std::to_string(Below(10));
            edit.EditPaste();
            model.Replace("xy" + clipboard.text->substr(4));
            break;
        case 3:
            clipboard.text = copied;
            edit.EditPaste();
            model.Replace(copied);
            break;
        default:
            edit.EditPasteNextNumber();
            model.Replace("17");
    }
    return model.text;
}

std::string EditRandom::UndoAndRedo(const Model& model) {
    edit.EditUndo();
    EXPECT_TRUE(past.contains(Real())) << "undo invents nothing";
    edit.EditUndo();
    EXPECT_EQ(Real(), model.text) << "a second undo redoes";
    edit.EditUndo();
    return Real();
}

std::string EditRandom::ChangeDisplay(const Model& model) {
    CSSetDisplayType(CSInSIL() ? kDisplayANSI : kDisplaySIL);
    edit.EnsureCorrectFont({.faceName = CSInSIL() ? "SIL" : "ANSI"});
    if (CSInSIL()) return IsDiacritic(model.text, 0) ? "\x1F" + model.text : model.text;
    const bool hasBlank = model.text.starts_with('\x1F') && IsDiacritic(model.text, 1);
    return hasBlank ? model.text.substr(1) : model.text;
}

void EditRandom::Move() {
    const auto key = static_cast<EditKey>(Below(static_cast<int>(EditKey::kPageDown) + 1));
    switch (Below(6)) {
        case 0:
            edit.OnLButtonDown(Anywhere(), Below(2) == 0);
            edit.OnMouseMove(Anywhere(), Below(2) == 0);
            edit.OnLButtonUp(Anywhere());
            break;
        case 1:
            edit.OnLButtonDblClk(Anywhere());
            break;
        case 2:
            edit.SetSelInRed(Below(20), Below(20), "word");
            break;
        default:
            edit.OnKeyDown({key, Below(2) == 0, Below(8) == 0});
            edit.OnVscroll();
    }
}

std::string EditRandom::Act(const Model& model) {
    if (model.text.size() > 150) {
        edit.SetWindowTextA("e\xA4\xB2");
        return "e\xA4\xB2";
    }
    const int kind = Below(20);
    if (kind < 10) return TypeAnything(model);
    if (kind == 10) return UseClipboard(model);
    if (kind == 11) return UndoAndRedo(model);
    if (kind == 12) return ChangeDisplay(model);
    Move();
    return model.text;
}

void EditRandom::Check() {
    const std::string text = Real();
    ASSERT_EQ(box.text.size(), text.size());
    ASSERT_EQ(edit.GetWindowTextLengthA(), static_cast<int>(text.size()));
    ASSERT_EQ(std::clamp(box.caret, 0, box.GetTextLength()), box.caret);
    ASSERT_EQ(std::clamp(box.anchor, 0, box.GetTextLength()), box.anchor);
    std::string display(text.size() + 1, '\0');
    CSQmToDisplay(text.c_str(), display.data(), CSGetDisplayType(), 0);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\x1F') continue;  // a blank or no glyph
        ASSERT_EQ(box.text[i], display[i]) << "at " << i;
    }
}

TEST_F(EditRandom, BothTextsStayInStepWhateverAPersonDoes) {
    for (int step = 0; step < 30000; ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step << ": " << Shown());
        const CEditMARCAlpha::Selection selection = edit.GetSel();
        const Model model{Real(), static_cast<std::size_t>(selection.start),
                          static_cast<std::size_t>(selection.end)};
        const std::string expected = Act(model);
        ASSERT_EQ(Real(), expected);
        ASSERT_NO_FATAL_FAILURE(Check());
        past.insert(expected);
    }
    EXPECT_TRUE(signals.sounds.empty()) << "the texts were never out of step";
}

}  // namespace
