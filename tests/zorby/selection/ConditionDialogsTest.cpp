#include <zorby/selection/DialogGEGetText.h>
#include <zorby/selection/DialogGEOnlyWhen.h>
#include <zorby/selection/DlgSelectSubfield.h>

#include <gtest/gtest.h>

#include <tests/zorby/selection/Selection.h>

using namespace zorby;

namespace {

using OnlyWhen = CDialogGEOnlyWhen;
using GetText = CDialogGEGetText;

constexpr int kSubject1 = OnlyWhen::kFirst + OnlyWhen::kSubject;
constexpr int kCondition1 = OnlyWhen::kFirst + OnlyWhen::kCondition;
constexpr int kText1 = OnlyWhen::kFirst + OnlyWhen::kText;
constexpr int kMatchCase1 = OnlyWhen::kFirst + OnlyWhen::kMatchCase;
constexpr int kSubject2 = OnlyWhen::kSecond + OnlyWhen::kSubject;
constexpr int kCondition2 = OnlyWhen::kSecond + OnlyWhen::kCondition;
constexpr int kText2 = OnlyWhen::kSecond + OnlyWhen::kText;

class ConditionDialogs : public Selection {
protected:
    ConditionDialogs() { SetEasy("Follett 2"); }

    void Next(MemoryWindow::Person person) { dialogs.persons.push_back(std::move(person)); }

    static std::string Entries(const MemoryList& list) {
        std::string entries;
        for (const auto& entry : list.entries) {
            entries += (entries.empty() ? "" : ",") + entry.text;
        }
        return entries;
    }

    // The condition in which a dialog ends, as a sentence and packed.
    std::string Edited(const char* tag, const char* state, MemoryWindow::Person person,
                       bool textTestsOnly = false, bool restrictOwnItem = false) {
        Next(std::move(person));
        OnlyWhen dialog("Title", tag, state, 0, 1, 0, textTestsOnly, restrictOwnItem, nullptr);
        if (dialog.DoModal() != kIdOk) return "cancelled";
        packed = dialog.GetStateText();
        return dialog.GetDescription();
    }

    std::string packed;
};

constexpr const char* kAllTests = "Contains,Does not contain,Is empty or missing,Is not empty";
constexpr const char* kTextTests = "Contains,Does not contain";

TEST_F(ConditionDialogs, ListsOfAFieldAndOfHoldings) {
    Edited("650", "OnlyWhen=1\\\\", [](MemoryWindow& window) {
        EXPECT_EQ(window.title, "Title");
        EXPECT_EQ(Entries(*window.List(kSubject1)), "Any subfield,$a,$x,$z");
        EXPECT_EQ(Entries(*window.List(kSubject2)), "Any subfield,$a,$x,$z");
        EXPECT_EQ(Entries(*window.List(kCondition1)), kAllTests);
    });
    Edited("\\HLD201\\", "OnlyWhen=1\\\\", [](MemoryWindow& window) {
        EXPECT_EQ(Entries(*window.List(kSubject1)), "Any holding,Follett 2,Call number");
    });
    SetHoldings("");
    Edited("\\HLD201\\", "OnlyWhen=1\\\\", [](MemoryWindow& window) {
        EXPECT_EQ(Entries(*window.List(kSubject1)), "Any holding");
    });
    Edited(
        "650", "OnlyWhen=1\\\\ContainType1=2\\\\AnySubfield1=0\\\\Subfield1=120\\\\",
        [](MemoryWindow& window) {
            EXPECT_EQ(Entries(*window.List(kCondition1)), kTextTests);
            EXPECT_EQ(window.List(kCondition1)->selected, -1) << "nothing to show";
            window.Choose(kSubject1, "$a");
            EXPECT_EQ(Entries(*window.List(kCondition1)), kTextTests);
        },
        true);
}

TEST_F(ConditionDialogs, AlwaysHidesAndDropsTheTests) {
    const char* state = "OnlyWhen=1\\\\AnySubfield1=0\\\\Subfield1=120\\\\ContainType1=3\\\\";
    EXPECT_EQ(Edited("650", state,
                     [](MemoryWindow& window) {
                         EXPECT_TRUE(window.Find(kSubject1)->isShown);
                         EXPECT_EQ(window.List(kSubject1)->SelectedText(), "$x");
                         EXPECT_EQ(window.List(kCondition1)->SelectedText(), "Is not empty");
                         window.Click("Always");
                         EXPECT_FALSE(window.Find(kSubject1)->isShown);
                         EXPECT_FALSE(window.Find(kSubject2)->isShown);
                         window.Ok();
                     }),
              "Always");
    EXPECT_EQ(packed,
              "OnlyWhen=0\\\\AnySubfield1=1\\\\Subfield1=0\\\\ContainType1=0\\\\Tag=650\\\\"
              "HoldingsID1=0\\\\ContainsText1=\\\\MatchCase1=0\\\\Advanced=0\\\\AnySubfield2=1\\\\"
              "Subfield2=0\\\\HoldingsID2=0\\\\ContainType2=0\\\\ContainsText2=\\\\"
              "MatchCase2=0\\\\BothConditions=1\\\\");
}

TEST_F(ConditionDialogs, ListsOpenAndCloseControls) {
    Edited("650", "OnlyWhen=1\\\\", [](MemoryWindow& window) {
        EXPECT_EQ(window.Find(OnlyWhen::kOnlyWhen)->text,
                  "&Only when the following condition is met");
        EXPECT_EQ(window.Find(OnlyWhen::kFirst)->text, "Condition");
        EXPECT_FALSE(window.Find(kCondition1)->isEnabled) << "any subfield contains, or doesn't";
        window.Choose(kSubject1, "$x");
        EXPECT_TRUE(window.Find(kCondition1)->isEnabled);
        window.Choose(kCondition1, "Is empty or missing");
        EXPECT_FALSE(window.Find(kText1)->isEnabled);
        EXPECT_FALSE(window.Find(kMatchCase1)->isEnabled);
        window.Choose(kSubject1, "Any subfield");
        EXPECT_EQ(window.List(kCondition1)->SelectedText(), "Contains");
        EXPECT_TRUE(window.Find(kText1)->isEnabled);
        EXPECT_FALSE(window.Find(kSubject2)->isShown);
        window.Click("Advanced >>");
        EXPECT_TRUE(window.Find(kSubject2)->isShown);
        EXPECT_EQ(window.Find(OnlyWhen::kOnlyWhen)->text,
                  "&Only when the following conditions are met");
        EXPECT_EQ(window.Find(OnlyWhen::kFirst)->text, "Condition 1");
        window.Click("<< Advanced");
        EXPECT_FALSE(window.Find(kSubject2)->isShown);
    });
}

TEST_F(ConditionDialogs, TheOwnItemCannotBeTestedForEmptiness) {
    const auto person = [](const char* own, const char* other) {
        return [own, other](MemoryWindow& window) {
            window.Choose(kSubject1, other);
            EXPECT_EQ(Entries(*window.List(kCondition1)), kAllTests) << other;
            window.Choose(kCondition1, "Is not empty");
            window.Choose(kSubject1, own);
            EXPECT_EQ(Entries(*window.List(kCondition1)), kTextTests) << own;
            EXPECT_EQ(window.List(kCondition1)->SelectedText(), "Contains");
            EXPECT_TRUE(window.Find(kText1)->isEnabled);
            window.Choose(kSubject1, other);
            EXPECT_EQ(Entries(*window.List(kCondition1)), kAllTests) << other;
        };
    };
    Edited("650x", "OnlyWhen=1\\\\", person("$x", "$a"), false, true);
    Edited("\\HLD201\\", "OnlyWhen=1\\\\", person("Call number", "Follett 2"), false, true);
}

TEST_F(ConditionDialogs, WhatIsMissingIsSaid) {
    const auto fails = [](MemoryWindow& window, const char* message) {
        window.Ok();
        EXPECT_TRUE(window.IsOpen());
        EXPECT_TRUE(window.Find(OnlyWhen::kError)->isShown);
        EXPECT_EQ(window.Find(OnlyWhen::kError)->text, message);
    };
    const char* unknown = "OnlyWhen=1\\\\AnySubfield1=0\\\\Subfield1=113\\\\HoldingsID1=999\\\\";
    Edited("650", unknown, [&](MemoryWindow& window) {
        fails(window, "You must select a subfield");
        window.Choose(kSubject1, "$a");
        fails(window, "You must provide search text for the condition.");
        window.Click("Advanced >>");
        fails(window, "You must provide search text for the first condition.");
        window.Type(kText1, "x");
        fails(window, "You must provide search text for the second condition.");
        window.Choose(kSubject2, "$z");
        window.Choose(kCondition2, "Is not empty");
        window.Ok();
        EXPECT_FALSE(window.IsOpen());
    });
    Edited("\\HLD201\\", unknown,
           [&](MemoryWindow& window) { fails(window, "You must select a holding"); });
}

TEST_F(ConditionDialogs, AControlFieldHasNoSubfields) {
    const char* state = "OnlyWhen=1\\\\AnySubfield1=0\\\\Subfield1=97\\\\ContainsText1=x\\\\";
    EXPECT_EQ(Edited("008", state, [](MemoryWindow& window) { window.Ok(); }),
              "Any subfield contains \"x\"");
    EXPECT_NE(packed.find("AnySubfield1=1\\\\"), std::string::npos);
}

TEST_F(ConditionDialogs, TwoTestsOfHoldings) {
    EXPECT_EQ(Edited("\\HLD201\\", "",
                     [](MemoryWindow& window) {
                         window.Click("Only when the following condition is met");
                         window.Click("Advanced >>");
                         window.Choose(kSubject1, "Follett 2");
                         window.Choose(kCondition1, "Does not contain");
                         window.Type(kText1, "REF*");
                         window.Click(kMatchCase1);
                         window.Click("Either condition");
                         window.Type(kText2, "JUV");
                         window.Ok();
                     }),
              "Follett does not contain \"REF*\" while matching case OR Any contains \"JUV\"");
    EXPECT_NE(packed.find("Tag=\\HLD200\\\\\\"), std::string::npos) << packed;
}

TEST_F(ConditionDialogs, ARefusedConditionLeavesNoTrace) {
    EXPECT_EQ(Edited("\\HLD201\\", "OnlyWhen=1\\\\",
                     [](MemoryWindow& window) {
                         window.Choose(kSubject1, "Follett 2");
                         window.Ok();
                         EXPECT_TRUE(window.IsOpen());
                         EXPECT_EQ(window.List(kSubject1)->SelectedText(), "Follett 2");
                         window.Choose(kSubject1, "Any holding");
                         window.Type(kText1, "x");
                         window.Ok();
                     }),
              "Any element contains \"x\"");
    EXPECT_NE(packed.find("Tag=\\HLD201\\\\\\"), std::string::npos) << packed;
}

TEST_F(ConditionDialogs, StatesAreReadWithoutAWindow) {
    SetNames(EDO_NameOnly);
    const struct {
        const char* state;
        const char* tag;
        bool isHolding;
        int id;
        const char* description;
    } kCases[] = {
        {"Tag=245a\\\\", "245a", false, 0, "<<Field: Title statement (245), Subfield: Part a>>"},
        {"Tag=\\245b\\\\\\", "\\245b\\", false, 0,
         "<<Field: Title statement (245), Subfield: Part b>>"},
        {"Tag=\\HLD201\\\\\\", "\\HLD201\\", true, 201,
         "<<Field: Holdings, Subfield: Call number>>"},
        {"Tag=\\HLD258\\\\\\", "\\HLD258\\", true, 258, "<<Field: Holdings, Subfield: >>"},
        {"", "", false, 0, ""},
        {"Tag=\\650x\\\\\\OnlyWhen=1\\\\ContainsText1=x\\\\", "\\650x\\", false, 0,
         "<<Field: Topic (650), Subfield: Part x, Only When: Any subfield contains \"x\">>"},
    };
    for (const auto& c : kCases) {
        std::string tag = "old";
        std::string description = "old";
        bool isHolding = !c.isHolding;
        EHOLDINGSID id = {};
        GetText::ParseState(c.state, tag, isHolding, id, description);
        EXPECT_EQ(tag, c.tag) << c.state;
        EXPECT_EQ(isHolding, c.isHolding) << c.state;
        EXPECT_EQ(id, c.id) << c.state;
        EXPECT_EQ(description, c.description) << c.state;
    }
    SetHoldings("");
    std::string tag;
    std::string description;
    bool isHolding = false;
    EHOLDINGSID id = {};
    GetText::ParseState("Tag=\\HLD201\\\\\\", tag, isHolding, id, description);
    EXPECT_EQ(description, "<<>>") << "no system is in force";
}

TEST_F(ConditionDialogs, AnotherItemDropsTheCondition) {
    const char* state = "Tag=\\HLD200\\\\\\OnlyWhen=1\\\\ContainsText1=old\\\\";
    Next([](MemoryWindow& window) {
        EXPECT_EQ(window.Find(GetText::kField)->text, "Holdings");
        EXPECT_EQ(window.Find(GetText::kSubfield)->text, "Follett 2");
        EXPECT_EQ(window.Find(GetText::kCondition)->text, "Any element contains \"old\"");
        EXPECT_TRUE(window.Find(GetText::kCondition)->isShown) << "a condition is shown";
        window.Click("Select...");
        EXPECT_EQ(window.Find(GetText::kCondition)->text, "Any element contains \"old\"");
        window.Click("Select...");
        EXPECT_EQ(window.Find(GetText::kSubfield)->text, "Call number");
        EXPECT_EQ(window.Find(GetText::kCondition)->text, "Always");
        window.Ok();
    });
    Next([](MemoryWindow& select) { select.Ok(); });
    Next([](MemoryWindow& select) {
        select.ClickItem(CFandSSelector::kTree, {"Holdings", "Call number"});
        select.Ok();
    });
    GetText dialog("", state, nullptr);
    EXPECT_EQ(dialog.DoModal(), kIdOk);
    EXPECT_TRUE(dialog.IsHolding());
    EXPECT_EQ(dialog.GetTagText(), "\\HLD201\\");
    EXPECT_EQ(dialog.GetState().substr(0, 29), "Tag=\\HLD201\\\\\\OnlyWhen=0\\\\Any");
    EXPECT_EQ(dialog.GetState().find("=old"), std::string::npos);
}

TEST_F(ConditionDialogs, TheSimpleFormHasNoCondition) {
    Next([](MemoryWindow& window) {
        EXPECT_EQ(window.Find(GetText::kSelect)->text, "&Select...");
        window.Click("<< Advanced");
        EXPECT_FALSE(window.Find(GetText::kCondition)->isShown);
        window.Ok();
    });
    GetText dialog("245a", "OnlyWhen=1\\\\ContainsText1=x\\\\", nullptr);
    EXPECT_EQ(dialog.DoModal(), kIdOk);
    EXPECT_EQ(dialog.GetDescription(), "<<Field: Title statement (245), Subfield: $a>>");
}

// A person wants the call number in a global edit, but only of copies for reference.
TEST_F(ConditionDialogs, FromOpeningToOkOverThreeDialogs) {
    Next([](MemoryWindow& getText) {
        getText.Click("Select...");
        getText.Click("Advanced >>");
        getText.Click("Only when...");
        EXPECT_EQ(getText.Find(GetText::kCondition)->text, "Follett contains \"REF\"");
        getText.Ok();
    });
    Next([](MemoryWindow& select) {
        select.Ok();
        EXPECT_EQ(select.Find(CDlgSelectSubfield::kError)->text,
                  "You have not selected or entered a subfield.");
        select.ClickItem(CFandSSelector::kTree, {"Subjects", "650", "$x"});
        select.ClickItem(CFandSSelector::kTree, {"Holdings", "Call number"});
        select.Ok();
    });
    Next([](MemoryWindow& onlyWhen) {
        EXPECT_EQ(onlyWhen.title, "Get text from subfields that meet these criteria");
        onlyWhen.Click("Only when the following condition is met");
        onlyWhen.Choose(kSubject1, "Follett 2");
        onlyWhen.Ok();
        EXPECT_EQ(onlyWhen.Find(OnlyWhen::kError)->text,
                  "You must provide search text for the condition.");
        onlyWhen.Type(kText1, "REF");
        onlyWhen.Ok();
    });
    GetText dialog("", "", nullptr);
    EXPECT_EQ(dialog.DoModal(), kIdOk);
    EXPECT_EQ(dialogs.opened, 3);
    EXPECT_EQ(dialog.GetDescription(),
              "<<Field: Holdings, Subfield: Call number, Only When: Follett contains \"REF\">>");

    // What was stored says the same without a window.
    std::string tag;
    std::string description;
    bool isHolding = false;
    EHOLDINGSID id = {};
    GetText::ParseState(dialog.GetState(), tag, isHolding, id, description);
    EXPECT_EQ(tag, "\\HLD201\\");
    EXPECT_EQ(id, 201);
    EXPECT_EQ(description, dialog.GetDescription());
}

}  // namespace
