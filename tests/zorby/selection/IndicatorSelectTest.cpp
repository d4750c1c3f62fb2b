#include <zorby/selection/IndicatorSelect.h>

#include <gtest/gtest.h>

#include <tests/zorby/selection/Selection.h>

using namespace zorby;

namespace {

using Id = CIndicatorSelect::Id;

class IndicatorSelect : public Selection {
protected:
    IndicatorSelect() {
        window.SetTarget(&control);
        AllowUserValues(false);
    }

    static void AllowUserValues(bool allow) {
        WriteZorbyProfileInt(ZP_USMARCRulesSelIndConFld, allow ? 0 : 1);
    }

    void Show(unsigned tag, int isFirst, char code, const CIndicatorSelect::Settings& settings) {
        control.InitializeIndicatorSelect(window, tag, code, isFirst, settings);
    }

    // The entries, divided by commas, with "*" before the selected one.
    std::string Entries() const {
        const MemoryList& list = *window.List(Id::kCombo);
        std::string entries;
        for (int i = 0; i < list.GetCount(); ++i) {
            entries += (i == 0 ? "" : ",") + std::string(i == list.selected ? "*" : "") +
                       list.GetTextAt(i);
        }
        return entries;
    }

    MemoryWindow window;
    CIndicatorSelect control;
};

TEST_F(IndicatorSelect, WhichIndicatorsAreAutomatic) {
    std::string first;
    std::string second;
    for (int tag = 0; tag <= 1000; ++tag) {
        if (CIndicatorSelect::IsIndicatorAutomatic(tag, 1)) first += std::to_string(tag) + " ";
        if (CIndicatorSelect::IsIndicatorAutomatic(tag, 0)) second += std::to_string(tag) + " ";
    }
    EXPECT_EQ(first, "130 245 630 730 740 ");
    EXPECT_EQ(second, "222 240 242 243 245 440 830 ");
}

TEST_F(IndicatorSelect, TheListHoldsTheValuesOfTheFormat) {
    Show(245, 1, '1', {.templateType = EDO_NameOnly});
    EXPECT_EQ(Entries(), "No,*Yes");
    EXPECT_EQ(window.Find(Id::kName)->text, "Added entry");
    EXPECT_EQ(window.Find(Id::kExplanation)->text, "Whether to trace the title");
    EXPECT_EQ(control.GetCode(), '1');
    EXPECT_FALSE(window.Find(Id::kUserValue)->isShown);
    EXPECT_FALSE(window.Find(Id::kAuto)->isShown);
    window.Choose(Id::kCombo, "No");
    EXPECT_EQ(control.GetCode(), '0');

    AllowUserValues(true);
    Show(245, 1, '1', {.templateType = EDO_NameOnly});
    EXPECT_EQ(Entries(), "No,*Yes,User defined indicator value");
    EXPECT_EQ(window.controls.size(), 7U) << "the controls are made once";

    Show(1000, 0, '_', {});
    EXPECT_FALSE(window.Find(Id::kName)->isShown);
    EXPECT_EQ(window.Find(Id::kExplanation)->text, "This is an undefined indicator");
}

TEST_F(IndicatorSelect, FieldsOfTheUserTakeAnyValue) {
    CMARCFormat::AddUserDefined("590a");
    Show(590, 1, '_', {.templateType = EDO_NameOnly});
    EXPECT_EQ(Entries(), "*Undefined,User defined indicator value");
    EXPECT_EQ(control.GetCode(), '_');
}

TEST_F(IndicatorSelect, AValueThatTheListLacksIsTheUsersOwn) {
    Show(245, 1, '5', {.templateType = EDO_NameOnly});
    EXPECT_EQ(Entries(), "No,Yes,*User defined indicator value");
    EXPECT_EQ(control.GetCode(), '5') << "nothing is lost";
    EXPECT_TRUE(window.Find(Id::kUserValue)->isShown);
    EXPECT_TRUE(window.Find(Id::kUserTip)->isShown);
    const std::pair<const char*, char> cases[] = {{"ab", 0},  {"_", '_'}, {"#", 0},
                                                  {"Q", 'Q'}, {"", 0},    {"\xE9", 0}};
    for (const auto& [typed, code] : cases) {
        window.Type(Id::kUserValue, typed);
        EXPECT_EQ(control.GetCode(), code) << typed;
    }
    window.Choose(Id::kCombo, "Yes");
    EXPECT_FALSE(window.Find(Id::kUserTip)->isShown);
    EXPECT_EQ(control.GetCode(), '1');
    std::string text;
    control.GetComboString(text);
    EXPECT_EQ(text, "Yes");
}

TEST_F(IndicatorSelect, Subfield2DecidesBetweenTwoValues) {
    const std::string sears = "sears";
    const std::string other = "bisacsh";
    const struct {
        const std::string* subfield2;
        const char* entries;
    } kCases[] = {
        {&sears, "LCSH,*Sears specified in $2,Source in $2"},
        {&other, "LCSH,Sears specified in $2,*Source in $2"},
        {nullptr, "LCSH,Sears specified in $2,Source in $2,*User defined indicator value"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.entries);
        Show(650, 0, '7',
             {.templateType = EDO_NameOnly, .templateCode = 1, .subfield2Text = c.subfield2});
        EXPECT_EQ(Entries(), c.entries);
        EXPECT_EQ(control.GetCode(), '7');
    }
}

TEST_F(IndicatorSelect, AnAutomaticValueCannotBeChosen) {
    Show(245, 1, '1', {.autoUpdate = 1, .showAutoCheck = 1});
    EXPECT_EQ(control.IsCheckVisible(), 1);
    EXPECT_EQ(control.IsDisabledBecauseOfAutoset(), 1);
    EXPECT_FALSE(window.Find(Id::kCombo)->isEnabled);
    EXPECT_TRUE(window.Find(Id::kAutoTip)->isShown);
    EXPECT_TRUE(window.Click("Updated automatically by program"));
    EXPECT_EQ(control.GetAutoUpdateState(), 0);
    EXPECT_TRUE(window.Find(Id::kCombo)->isEnabled);
    EXPECT_FALSE(window.Find(Id::kAutoTip)->isShown);

    Show(650, 1, '0', {.autoUpdate = 1, .showAutoCheck = 1});
    EXPECT_EQ(control.IsCheckVisible(), 0);
    EXPECT_TRUE(window.Find(Id::kCombo)->isEnabled);
    EXPECT_FALSE(window.Find(Id::kAuto)->isShown);
}

}  // namespace
