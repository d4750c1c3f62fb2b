#include <zorby/selection/DialogGEGetText.h>
#include <zorby/selection/DlgSelectSubfield.h>

#include <gtest/gtest.h>

#include <tests/zorby/editing/GetTextEditing.h>

using namespace zorby;

namespace {

constexpr EditKey kNoKey = EditKey::kOther;

TEST_F(GetTextEditing, StatesBecomeTextsAndComeBack) {
    const struct {
        std::string state;
        std::string displayed;
        std::string saved;  // as it comes back if that differs
    } kCases[] = {
        {"Text=abc||", "abc", ""},
        {"", "", "Text=||"},
        {"Text=abc", "", "Text=||"},  // a last piece without a separator
        {"Condition1=Tag=245a\\\\||Position1=2||Text=abcd||", "ab{A}cd", ""},
        {StateOf(Whole("{A}x{B}{A}")), "{A}x{B}{A}", ""},
        {"Condition1=Tag=245a\\\\||Text=abc||", "abc", "Text=abc||"},
        {"Condition1=Tag=245a\\\\||Condition2=Tag=500a\\\\||Position2=1||Text=abc||", "a{B}bc",
         "Condition1=Tag=500a\\\\||Position1=1||Text=abc||"},
        {"Condition1=Tag=245a\\\\||Position1=99||Text=abc||", "abc{A}",
         "Condition1=Tag=245a\\\\||Position1=3||Text=abc||"},
        // Out of order, and one inside the description of the other.
        {"Condition1=Tag=245a\\\\||Position1=2||Condition2=Tag=500a\\\\||Position2=1||Text=abc||",
         "a{B}b{A}c", StateOf(Whole("a{B}b{A}c"))},
        {"Condition1=Tag=245a\\\\||Position1=1||Condition2=Tag=500a\\\\||Position2=3||Text=abc||",
         "a{A}{B}bc", StateOf(Whole("a{A}{B}bc"))},
        // A field without an item has a place and no description.
        {"Condition1=||Position1=1||Text=ab||", "ab",
         "Condition1=Tag=\\\\||Position1=1||Text=ab||"},
    };
    for (const auto& [state, displayed, saved] : kCases) {
        SCOPED_TRACE(state);
        std::string text;
        edit.Initialize(state, true, &text);
        EXPECT_EQ(Short(text), displayed);
        EXPECT_EQ(Short(Real()), displayed);
        EXPECT_EQ(edit.IsEmpty(), displayed.empty());
        const std::string state2 = edit.GetState();
        EXPECT_EQ(state2, saved.empty() ? state : saved);
        edit.Initialize(state2, true, &text);
        EXPECT_EQ(Short(text), displayed);
    }
}

TEST_F(GetTextEditing, RecordsFillTheFields) {
    CEditMARCAlphaGT windowless;
    std::string displayed;
    const std::string condition = "Tag=500a\\\\OnlyWhen=1\\\\ContainsText1=map\\\\";
    const std::string sentence =
        "<<Field: Note (500), Subfield: $a, Only When: Any subfield contains \"map\">>";
    windowless.Initialize("Condition1=Tag=245a\\\\||Position1=1||Condition2=" + condition +
                              "||Position2=" + std::to_string(2 + kA.size()) + "||Text=abc||",
                          false, &displayed);
    EXPECT_EQ(Short(displayed), "a{A}b" + sentence + "c");
    EXPECT_TRUE(windowless.IsEmpty()) << "nothing is shown";
    windowless.InitializeForProcessing(false);
    EXPECT_EQ(windowless.GetGTOnlyWhenState(0)->parsedTag, 245);
    EXPECT_FALSE(windowless.GetGTOnlyWhenState(0)->onlyWhen);
    EXPECT_EQ(windowless.GetGTOnlyWhenState(1)->first.containsText, "map");
    EXPECT_EQ(windowless.GetGTOnlyWhenState(2), nullptr);
    EXPECT_EQ(windowless.GetGTOnlyWhenState(-1), nullptr);
    const struct {
        const char* first;
        const char* second;
        const char* actual;
    } kRecords[] = {{"X", "", "aXbc"}, {"", "", "abc"}, {"long \xE6", "Y", "along \xE6\142Yc"}};
    for (const auto& [first, second, actual] : kRecords) {
        windowless.SetGTSubfieldText(0, first);
        windowless.SetGTSubfieldText(1, second);
        windowless.SetGTSubfieldText(2, "lost");
        EXPECT_EQ(windowless.GetActualText(), actual);
    }
    Set("x{A}y");
    edit.InitializeForProcessing(true);
    edit.SetGTSubfieldText(0, "-");
    EXPECT_EQ(edit.GetActualText(), "x-y");
}

struct Step {
    const char* before;
    KeyStroke stroke;
    char typed;  // if not 0, instead of the stroke
    const char* after;
};

TEST_F(GetTextEditing, KeysTakeAFieldForOneCharacter) {
    constexpr KeyStroke kBack{kNoKey};
    const Step kSteps[] = {
        {"a|{A}b", {EditKey::kRight}, 0, "a{A}|b"},
        {"a{A}|b", {EditKey::kLeft}, 0, "a|{A}b"},
        {"a|{A}{B}b", {EditKey::kRight, true}, 0, "a[{A}|{B}b"},
        {"a[{A}|{B}b", {EditKey::kRight, true}, 0, "a[{A}{B}|b"},
        {"a[{A}|b", {EditKey::kLeft, true}, 0, "a|{A}b"},
        {"a[{A}|b", {EditKey::kLeft}, 0, "a|{A}b"},
        {"[a{A}|b", {EditKey::kLeft, true}, 0, "[a|{A}b"},
        {"{A}a|", {EditKey::kUp}, 0, "|{A}a"},      // the field is in two lines
        {"{A}a|b", {EditKey::kHome}, 0, "|{A}ab"},  // which begins inside it
        {"a|{A}b", {EditKey::kEnd, true}, 0, "a[{A}|b"},
        {"|a{A}b", {EditKey::kDown}, 0, "a{A}|b"},
        {"a|{A}b", {EditKey::kDelete}, 0, "a|b"},
        {"a|{A}b", {EditKey::kDelete, false, true}, 0, "a|{A}b"},
        {"a{A}|b", {EditKey::kDelete}, 0, "a{A}|"},
        {"a{A}|{B}b", kBack, '\b', "a|{B}b"},
        {"a|{A}b", kBack, '\b', "|{A}b"},
        {"a[{A}{B}|{A}b", kBack, '\b', "a|{A}b"},
        {"a[{A}{B}|{A}b", {EditKey::kDelete}, 0, "a|{A}b"},
        {"x\xA4{A}|", kBack, '\b', "x\xA4|"},  // the diacritic is of another letter
        {"a|{A}b", kBack, 'x', "ax|{A}b"},
        {"a[{A}{B}|{A}b", kBack, 'x', "ax|{A}b"},
        {"[{A}{B}{A}|", kBack, 'x', "x|"},
        {"a|{A}b", {EditKey::kA, false, true}, 0, "[a{A}b|"},
        {"a[{A}|b", {EditKey::kX, false, true}, 0, "a[{A}|b"},  // nothing is cut
        {"a[{A}|b", {EditKey::kV, false, true}, 0, "apaste|b"},
    };
    clipboard.text = "paste";
    for (const Step& step : kSteps) {
        SCOPED_TRACE(std::string(step.before) + " to " + step.after);
        Set(step.before);
        ASSERT_EQ(Shown(), step.before);
        if (step.typed != 0) {
            edit.OnChar(static_cast<unsigned char>(step.typed));
        } else {
            edit.OnKeyDown(step.stroke);
        }
        EXPECT_EQ(Shown(), step.after);
        std::string state = edit.GetState();
        EXPECT_EQ(state, StateOf(Real()));
        EXPECT_EQ(clipboard.text, "paste");
    }
    EXPECT_TRUE(signals.sounds.empty()) << "the two texts differed";
}

TEST_F(GetTextEditing, DoubledSignsAreRefused) {
    const struct {
        const char* before;
        char typed;
        bool isTaken;
    } kCases[] = {
        {"a|", '^', true},     {"a^|", '^', false},      {"|^a", '^', false},
        {"^[a|^", '^', false}, {"^|", 'x', true},        {"a^|", '#', true},
        {"^{A}|", '^', false}, {"|{A}{B}^", '^', false}, {"^x{A}|", '^', true},
    };
    for (const auto& [before, typed, isTaken] : kCases) {
        SCOPED_TRACE(before);
        Set(before);
        edit.OnChar(static_cast<unsigned char>(typed));
        EXPECT_EQ(Shown() != before, isTaken);
        EXPECT_EQ(signals.sounds.empty(), isTaken);
        signals.sounds.clear();
    }
    edit.SetWindowTextA("a|");
    edit.SetSel(2, 2);
    edit.OnChar('|');
    EXPECT_EQ(Real(), "a|");
}

struct Mouse {
    const char* before;
    int press;               // bytes from the start of the text
    std::vector<int> moves;  // with the button down
    bool extend;
    const char* after;
};

TEST_F(GetTextEditing, TheMouseSelectsWholeFields) {
    constexpr int kA0 = 2;  // "ab" and then the field
    constexpr int kA1 = kA0 + static_cast<int>(kA.size());
    const Mouse kCases[] = {
        {"|ab{A}cd", kA0 + 1, {}, false, "ab[{A}|cd"},
        {"|ab{A}cd", kA1 - 1, {}, false, "ab[{A}|cd"},
        {"|ab{A}cd", kA0, {}, false, "ab|{A}cd"},  // before its first character
        {"|ab{A}cd", kA1, {}, false, "ab{A}|cd"},
        {"|ab{A}cd", kA0 + 5, {}, true, "[ab{A}|cd"},
        {"ab{A}c|d", kA0 + 5, {}, true, "ab|{A}c[d"},
        {"|ab{A}cd", 1, {kA0 + 3}, false, "a[b{A}|cd"},
        {"|ab{A}cd", 1, {kA0 + 3, kA1 + 1}, false, "a[b{A}c|d"},
        {"|ab{A}cd", 1, {kA0 + 9, kA0 + 1, 0}, false, "|a[b{A}cd"},
        {"|ab{A}cd", kA1 + 1, {kA0 + 3}, false, "ab|{A}c[d"},
        {"|ab{A}cd", kA0 + 5, {kA0 + 3}, false, "ab[{A}|cd"},
        {"|ab{A}cd", kA0 + 5, {1}, false, "a|b{A}[cd"},
        {"|ab{A}cd", kA0 + 5, {1, kA1 + 1}, false, "ab[{A}c|d"},
        {"|ab{A}cd", kA0 + 5, {1, kA0}, false, "ab[{A}|cd"},
    };
    for (const Mouse& mouse : kCases) {
        SCOPED_TRACE(std::string(mouse.before) + " to " + mouse.after);
        Set(mouse.before);
        edit.OnLButtonDown(At(mouse.press), mouse.extend);
        for (const int position : mouse.moves) edit.OnMouseMove(At(position), true);
        edit.OnMouseMove(At(0), false);
        EXPECT_EQ(Shown(), mouse.after);
    }
    Set("|ab{A}cd");
    edit.OnLButtonDblClk(At(1));
    EXPECT_EQ(Shown(), "[ab{A}|cd") << "a word that reaches into a field";
}

TEST_F(GetTextEditing, UndoBringsFieldsBack) {
    Set("a{A}|{B}b");
    edit.OnChar('\b');
    EXPECT_EQ(Shown(), "a|{B}b");
    edit.EditUndo();
    EXPECT_EQ(Shown(), "a[{A}|{B}b");
    EXPECT_EQ(edit.GetState(), StateOf(Whole("a{A}{B}b")));
    edit.EditUndo();
    EXPECT_EQ(Short(Real()), "a{B}b");
    EXPECT_EQ(edit.GetState(), StateOf(Whole("a{B}b")));
}

TEST_F(GetTextEditing, FieldsFollowTheDisplayType) {
    const std::string accent = "\xA4";
    Set(accent + "{A}b");
    CSSetDisplayType(kDisplaySIL);
    edit.EnsureCorrectFont(CFont{"SIL", 11, 400, false, 0});
    EXPECT_EQ(Short(Real()), "\x1F" + accent + "{A}b");
    EXPECT_EQ(edit.GetState(), StateOf(Real()));
    Set("a|{A}" + accent + "b");
    edit.OnKeyDown({EditKey::kRight});
    EXPECT_EQ(Shown(), "a{A}" + accent + "|b") << "a field with its diacritic";
    Set("\x1F" + accent + "{A}b");
    CSSetDisplayType(kDisplayANSI);
    edit.EnsureCorrectFont(CFont{"ANSI", 10, 400, false, 0});
    EXPECT_EQ(edit.GetState(), StateOf(Whole(accent + "{A}b")));
    edit.SetWindowTextA(kA);
    EXPECT_TRUE(edit.Fields().empty()) << "a text alone has no fields";
}

TEST_F(GetTextEditing, OnePassLeavesTheSecondOfTwoFields) {
    Set("a{A}{B}{A}b");
    GetTextFields fields;
    for (const GetTextField& field : edit.Fields()) fields.Add(field);
    const int end = fields.All().back().End();
    fields.DeleteSelectedGetTextInfo(1, end);
    ASSERT_EQ(fields.Count(), 1);
    EXPECT_EQ(fields.All()[0].tagText, "500a");
    fields.DeleteSelectedGetTextInfo(1, end);
    EXPECT_EQ(fields.Count(), 0);
}

// A person picks an item in the dialog of a field and confirms it.
void Pick(MemoryDialogs& dialogs, const char* item) {
    dialogs.persons.push_back([item, &dialogs](MemoryWindow& window) {
        dialogs.persons.push_back([item](MemoryWindow& select) {
            select.Click("Select from text box");
            select.Type(CFandSSelector::kEdit, item);
            select.Ok();
        });
        window.Click("Select...");
        window.Ok();
    });
}

TEST_F(GetTextEditing, TheButtonMakesAndChangesFields) {
    const struct {
        const char* before;
        const char* after;
        const char* opensWith;  // the field word of the dialog
    } kCases[] = {
        {"a|b", "a{B}|b", ""},
        {"a[b|c", "a{B}|c", ""},
        {"a|{A}b", "a{B}|{A}b", ""},  // a caret selects nothing
        {"a[{A}|b", "a{B}|b", "Title statement (245)"},
        {"x[a{B}{A}b|{A}", "x{B}|{A}", "Title statement (245)"},
    };
    for (const auto& [before, after, opensWith] : kCases) {
        SCOPED_TRACE(before);
        Set(before);
        std::string opened;
        Pick(dialogs, "500a");
        const auto person = dialogs.persons.back();
        dialogs.persons.back() = [&opened, person](MemoryWindow& window) {
            opened = window.Find(CDialogGEGetText::kField)->text;
            person(window);
        };
        edit.OnGetTextButton();
        EXPECT_EQ(Shown(), after);
        EXPECT_EQ(opened, opensWith);
        std::string displayed;
        CEditMARCAlphaGT again;
        again.Initialize(edit.GetState(), false, &displayed);
        EXPECT_EQ(displayed, Real());
        edit.EditUndo();
        EXPECT_EQ(Shown(), before);
    }
}

TEST_F(GetTextEditing, TheDialogMayChangeNothing) {
    Set("a[{A}|b");
    dialogs.persons.push_back([](MemoryWindow& window) { window.Click("Cancel"); });
    edit.OnGetTextButton();
    EXPECT_EQ(Shown(), "a[{A}|b");
    Set("a|b");
    dialogs.persons.push_back([](MemoryWindow& window) { window.Ok(); });
    edit.OnGetTextButton();
    EXPECT_EQ(Shown(), "a|b") << "nothing was picked";
    Set("|ab{A}");
    Pick(dialogs, "500a");
    edit.OnLButtonDblClk(At(9));
    EXPECT_EQ(Shown(), "ab{B}|") << "a double click opens the field";
}

TEST_F(GetTextEditing, TheButtonFollowsTheFocus) {
    MemoryControl button({ControlKind::kButton, 1, "Get text", {}});
    CEditMARCAlpha other;
    edit.SetGetTextButton(&button);
    edit.OnKillFocus(&other);
    EXPECT_FALSE(button.isEnabled);
    edit.OnSetFocus();
    EXPECT_TRUE(button.isEnabled);
    edit.OnKillFocus(nullptr);
    EXPECT_TRUE(button.isEnabled) << "the button itself may have it";
    EXPECT_EQ(edit.CanCut() + edit.CanCopy(), 0);
}

}  // namespace
