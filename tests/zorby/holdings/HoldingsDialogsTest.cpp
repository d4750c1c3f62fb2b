#include <zorby/holdings/DlgHoldingsCustom.h>
#include <zorby/holdings/DlgHoldingsEasyEntry.h>
#include <zorby/holdings/HoldingsGroupDialogs.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/platform/MemoryDialogs.h>
#include <zorby/platform/PortInForce.h>

#include <gtest/gtest.h>

#include <tests/zorby/format/Dictionaries.h>

using namespace zorby;

namespace {

using Id = CHoldingsSelector::Id;
using Group = HoldingsGroupDialog::Id;

class HoldingsDialogs : public Dictionaries {
protected:
    HoldingsDialogs() { CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path()); }

    void Next(MemoryWindow::Person person) { dialogs.persons.push_back(std::move(person)); }

    static std::string Stored() {
        std::string text;
        GetZorbyProfileString(ZP_NewHoldings, text);
        return text;
    }

    MemoryDialogs dialogs;
    DialogsInForce dialogsInForce{dialogs};
};

// The control in a window of its own.
class HoldingsControl : public HoldingsDialogs {
protected:
    void Open(const std::string& settings) {
        SetHoldings(settings);
        window.SetTarget(&selector);
        selector.InitializeYourself(window, {5, 5, 430, 170});
    }

    std::string Buttons() const {
        return std::string(window.Find(Id::kEasy)->isChecked ? "easy" : "") +
               (window.Find(Id::kCustom)->isChecked ? "custom" : "") +
               (window.Find(Id::kTypes)->isEnabled ? " list " : " ") +
               window.List(Id::kTypes)->SelectedText();
    }

    MemoryWindow window;
    CHoldingsSelector selector;
};

TEST_F(HoldingsControl, DescribesEachGroup) {
    const struct {
        const char* settings;
        const char* description;
        const char* buttons;
    } kCases[] = {
        {"", "Next bar code: ", " "},
        {"EasyOrCustom=Easy\\\\HoldingsType=Basic\\\\NextBarCode=T 7\\\\", "Next bar code: T 7",
         "easy list Basic"},
        {"EasyOrCustom=Easy\\\\HoldingsType=Dynix\\\\HoldingsExtraSettings=DynixIndicators=1|\\\\",
         "Next bar code: \r\nIndicators: 1_", "easy list Dynix"},
        {"EasyOrCustom=Easy\\\\HoldingsType=LWLP 2\\\\HoldingsExtraSettings=LWLPCallTag=099|"
         "LWLPSubTags=ab|\\\\",
         "Next bar code: \r\nCall Tag: 099\tSubTags: ab", "easy list LWLP 2"},
        {"EasyOrCustom=Easy\\\\HoldingsType=Unison\\\\",
         "Next bar code: , Next accession number: , Location of default call number: 900a",
         "easy list Unison"},
        {"EasyOrCustom=Easy\\\\HoldingsType=Mandarin EZ Transfer\\\\NextBarCode=1\\\\",
         "Holdings Subfields: khip", "easy list Mandarin EZ Transfer"},
        {"EasyOrCustom=Custom\\\\HoldingsType=Basic\\\\NextBarCode=1\\\\",
         "Holdings fields && subfields: , Bar code subfield: 852p, Call number subfields: 852khim",
         "custom Basic"},
        {"EasyOrCustom=Easy\\\\HoldingsType=none\\\\", "Next bar code: ", "easy list "},
    };
    Open("");
    for (const auto& c : kCases) {
        selector.InitializeYourself(c.settings);
        EXPECT_EQ(selector.GetCurrentSettings(), c.description) << c.settings;
        EXPECT_EQ(window.Find(Id::kCurrentSettings)->text, c.description) << c.settings;
        EXPECT_EQ(Buttons(), c.buttons) << c.settings;
        EXPECT_EQ(selector.HasBeenSet(), *c.settings != '\0') << c.settings;
    }
}

TEST_F(HoldingsControl, AFormerNameBecomesThePresentOne) {
    Open("EasyOrCustom=Easy\\\\HoldingsType=Follett old\\\\");
    EXPECT_EQ(selector.GetHoldingsType(), "Follett 2");
    EXPECT_EQ(Stored(), "EasyOrCustom=Easy\\\\HoldingsType=Follett old\\\\");
    selector.SaveSettings();
    EXPECT_EQ(Stored(), "EasyOrCustom=Easy\\\\HoldingsType=Follett 2\\\\");
}

TEST_F(HoldingsControl, EasyEntry) {
    Open("");
    EXPECT_EQ(selector.GetHoldingsType(), "Custom");
    Next([&](MemoryWindow& easy) {
        easy.Ok();
        ASSERT_EQ(messages.messages.size(), 1U);
        EXPECT_EQ(messages.messages[0].text,
                  "You must choose a holdings type or hit the Cancel button.");
        easy.Choose(CDlgHoldingsEasyEntry::kTypes, "Dynix");
        easy.Click("Change...");
        easy.Ok();
    });
    Next([](MemoryWindow& dynix) {
        EXPECT_EQ(dynix.title, "Holdings Settings");
        EXPECT_EQ(dynix.Text(Group::kIndicators)->text, "__");
        dynix.Type(Group::kNextBarCode, "B 9");
        dynix.Type(Group::kIndicators, "4");
        dynix.Ok();
    });
    EXPECT_TRUE(window.Click("Easy entry"));
    EXPECT_EQ(selector.GetSettings(),
              "EasyOrCustom=Easy\\\\HoldingsType=Dynix\\\\NextBarCode=B 9\\\\"
              "HoldingsExtraSettings=DynixIndicators=4_|\\\\");
    EXPECT_EQ(Buttons(), "easy list Dynix");
    EXPECT_EQ(Stored(), "") << "nothing is stored yet";
    EXPECT_EQ(selector.GetCurrentSettings(), "Next bar code: B 9\r\nIndicators: 4_");
}

TEST_F(HoldingsControl, ACancelledChoiceChangesNothing) {
    const std::string before = "EasyOrCustom=Easy\\\\HoldingsType=Basic\\\\";
    Open(before);
    EXPECT_TRUE(window.Click("Custom"));
    EXPECT_TRUE(window.Click("Easy entry"));
    EXPECT_TRUE(window.Click("Change..."));
    EXPECT_EQ(dialogs.opened, 3);
    EXPECT_EQ(Buttons(), "easy list Basic") << "the mark goes back";
    EXPECT_EQ(selector.GetSettings(), before);
}

TEST_F(HoldingsControl, ChangeOpensTheDialogOfTheGroup) {
    Open("EasyOrCustom=Easy\\\\HoldingsType=Basic\\\\NextBarCode=1\\\\");
    Next([](MemoryWindow& basic) {
        EXPECT_EQ(basic.title, "Holdings Settings for Basic");
        basic.Type(Group::kNextBarCode, "2");
        basic.Ok();
    });
    window.Click("Change...");
    EXPECT_EQ(selector.GetCurrentSettings(), "Next bar code: 2");
    window.Choose(Id::kTypes, "Unison");
    Next([](MemoryWindow& unison) {
        EXPECT_EQ(unison.Text(Group::kLocation)->text, "900a");
        unison.Type(Group::kNextAccNo, "88");
        unison.Ok();
    });
    window.Click("Change...");
    EXPECT_EQ(selector.GetCurrentSettings(),
              "Next bar code: 2, Next accession number: 88, Location of default call number: 900a");
    Next([](MemoryWindow& mandarin) {
        EXPECT_EQ(mandarin.Text(Group::kSubfields)->text, "khip");
        mandarin.Ok();
    });
    window.Choose(Id::kTypes, "Mandarin EZ Transfer");
    EXPECT_EQ(selector.GetSettings(),
              "EasyOrCustom=Easy\\\\HoldingsType=Mandarin EZ Transfer\\\\HoldingsExtraSettings="
              "FollettUnisonNextAccNumber=88|FollettUnisonLocOfMasterCallNumber=900a|"
              "MandarinEZTransferHoldingsSubfields=khip|\\\\");
}

TEST_F(HoldingsControl, ASystemWithoutBarCodesKeepsTheNextOneForOthers) {
    Open("EasyOrCustom=Easy\\\\HoldingsType=Basic\\\\NextBarCode=T 7\\\\");
    Next([](MemoryWindow& easy) {
        easy.Choose(CDlgHoldingsEasyEntry::kTypes, "Mandarin EZ Transfer");
        easy.Ok();
    });
    for (int i = 0; i < 2; ++i) Next([](MemoryWindow& mandarin) { mandarin.Ok(); });
    window.Click("Easy entry");
    window.Click("Change...");
    EXPECT_EQ(dialogs.opened, 3);
    EXPECT_EQ(selector.GetCurrentSettings(), "Holdings Subfields: khip");
    window.Choose(Id::kTypes, "Basic");
    EXPECT_EQ(selector.GetCurrentSettings(), "Next bar code: T 7");
}

TEST_F(HoldingsControl, AListWithoutASelectionChangesNothing) {
    const std::string before = "EasyOrCustom=Easy\\\\HoldingsType=Basic\\\\";
    Open(before);
    window.List(Id::kTypes)->Select(-1);
    EXPECT_EQ(selector.OnCmdMsg(Id::kTypes, CN_SelectionChanged, kTreeRoot), 1);
    EXPECT_EQ(selector.GetSettings(), before);
}

TEST_F(HoldingsControl, CustomSettings) {
    Open("EasyOrCustom=Easy\\\\HoldingsType=Basic\\\\");
    Next([](MemoryWindow& custom) {
        EXPECT_EQ(custom.Text(CDlgHoldingsCustom::kBarCode)->text, "852p");
        EXPECT_EQ(custom.Text(CDlgHoldingsCustom::kCallNumber)->text, "852khim");
        custom.Type(CDlgHoldingsCustom::kAllFields, " 852a   949b ");
        custom.Type(CDlgHoldingsCustom::kBarCode, "");
        custom.Ok();
    });
    window.Click("Custom");
    EXPECT_EQ(selector.GetSettings(),
              "EasyOrCustom=Custom\\\\HoldingsType=Basic\\\\HoldingsExtraSettings="
              "CustomAllFAndS=852a 949b|CustomBarCodeSubfield=|"
              "CustomCallNumberSubfields=852khim|\\\\");
    EXPECT_EQ(Buttons(), "custom Basic");
    EXPECT_EQ(selector.GetCurrentSettings(),
              "Holdings fields && subfields: 852a 949b, Bar code subfield: 852p, Call number "
              "subfields: 852khim");
}

TEST_F(HoldingsDialogs, CustomTextsThatAreRefused) {
    using Dialog = CDlgHoldingsCustom;
    const char* shortField =
        "The holdings field and subfield must include a 3 digit tag and at least one subfield "
        "code.";
    const char* barCode =
        "The bar code must include a 3-digit field tag between 010 and 999 and a valid subfield "
        "code.";
    const struct {
        int id;
        const char* text;
        const char* message;
    } kCases[] = {
        {Dialog::kAllFields, "", shortField},
        {Dialog::kAllFields, "852a 949", shortField},
        {Dialog::kAllFields, "852a 009a", "The holdings field tag must be between 010 and 999."},
        {Dialog::kAllFields, "852aB",
         "A holdings subfield code of 'B' is invalid for the 852 field."},
        {Dialog::kBarCode, "852pp", barCode},
        {Dialog::kBarCode, "009p", barCode},
        {Dialog::kBarCode, "852P", barCode},
        {Dialog::kCallNumber, "852",
         "The call number subfields must include a 3 digit tag and at least one subfield code."},
        {Dialog::kCallNumber, "852K 009h",
         "The call number field tag must be between 010 and 999."},
        {Dialog::kCallNumber, "852K 949h",
         "One of the subfield codes you entered for call number subfields is invalid."},
    };
    const std::string before =
        "DynixIndicators=1_|CustomAllFAndS=852p|CustomBarCodeSubfield=852p|"
        "CustomCallNumberSubfields=852h|";
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.text);
        std::string extra = before;
        messages.messages.clear();
        Next([&](MemoryWindow& custom) {
            custom.Type(c.id, c.text);
            custom.Ok();
            EXPECT_TRUE(custom.IsOpen());
            EXPECT_EQ(custom.Find(c.id)->timesFocused, 1);
        });
        EXPECT_EQ(Dialog(extra, nullptr).DoModal(), kIdCancel);
        ASSERT_EQ(messages.messages.size(), 1U);
        EXPECT_EQ(messages.messages[0].text, c.message);
        EXPECT_EQ(extra, before);
    }
}

TEST_F(HoldingsDialogs, LwlpTextsAreFilteredAsTheUserTypes) {
    std::string barCode = "1";
    std::string extra = "LWLPCallTag=099|";
    Next([](MemoryWindow& lwlp) {
        EXPECT_EQ(lwlp.title, "Holdings Additional Settings for LWLP 2");
        lwlp.Type(Group::kCallTag, "0a92");
        EXPECT_EQ(lwlp.Text(Group::kCallTag)->text, "09");
        EXPECT_EQ(lwlp.Text(Group::kCallTag)->selectedTo, 4) << "the caret stays where it was";
        lwlp.Type(Group::kSubTags, "aB $c");
        EXPECT_EQ(lwlp.Text(Group::kSubTags)->text, "a$c");
        lwlp.Ok();
    });
    EXPECT_EQ(CDlgHoldingsLWLP("LWLP 2", barCode, extra, nullptr).DoModal(), kIdOk);
    EXPECT_EQ(extra, "LWLPCallTag=09|LWLPSubTags=a$c|");
}

TEST_F(HoldingsDialogs, MandarinsSettingsCannotBeLeftUnset) {
    std::string type;
    std::string barCode = "5";
    std::string extra;
    Next([](MemoryWindow& easy) {
        easy.Choose(CDlgHoldingsEasyEntry::kTypes, "Mandarin EZ Transfer");
        easy.Ok();
        EXPECT_TRUE(easy.IsOpen());
        easy.Ok();
        EXPECT_FALSE(easy.IsOpen());
    });
    Next([](MemoryWindow& settings) { settings.Cancel(); });
    Next([](MemoryWindow& settings) {
        settings.Type(Group::kSubfields, "kx");
        settings.Ok();
    });
    EXPECT_EQ(CDlgHoldingsEasyEntry(type, barCode, extra, nullptr).DoModal(), kIdOk);
    EXPECT_EQ(type, "Mandarin EZ Transfer");
    EXPECT_EQ(extra, "MandarinEZTransferHoldingsSubfields=kx|");
}

}  // namespace
