#include <quillory/desktop/CodedChoice.h>
#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/CodedStrip.h>
#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MessageBar.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <set>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

const std::string k008 = "240101s2023    nyua          000 0 eng d";

std::string BookOf(const std::string& content008 = k008, const std::string& more = {}) {
    Lines lines{"LDR00000cam a2200000 a 4500", "0011", "008" + content008,
                "24510\037aRivers /\037cJane Doe."};
    if (!more.empty()) lines.insert(lines.begin() + 2, more);
    return MarcOf(lines);
}

// A person at the forms of a record.
class CodedEditorTest : public DeskTest {
protected:
    void SetUp() override { Open(BookOf()); }

    template <class Control>
    Control* Named(const QString& name) {
        for (auto* control : window_->Coded().findChildren<Control*>()) {
            if (control->isVisible() && control->accessibleName() == name) return control;
        }
        ADD_FAILURE() << "nothing is named " << name.toStdString();
        return nullptr;
    }
    CodedChoice* Choice(const QString& name) { return Named<CodedChoice>(name); }
    // Types into what has the keyboard, letter by letter.
    static void Type(const QString& text) {
        for (const QChar letter : text) {
            QWidget* popup = QApplication::activePopupWidget();
            QTest::keyClicks(popup != nullptr ? popup : QApplication::focusWidget(), letter);
        }
    }
    // Letters that come after a while are not those of one word.
    static void Rest() { QTest::qWait(QApplication::keyboardInputInterval() + 50); }
    QTabBar& Fields() { return *window_->Coded().findChild<QTabBar*>(); }
    std::string Saved() {
        EXPECT_TRUE(window_->Save());
        return file_->Read();
    }
};

// F8, a choice by its code, one by its words, a date: checked, saved, and nothing else has changed.
TEST_F(CodedEditorTest, A008IsFilledByKeysAndSaved) {
    Press(Qt::Key_F8);
    EXPECT_EQ(Fields().tabText(Fields().currentIndex()), "008 books");
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(),
              "Type of date/Publication status, 008/06");
    Choice("Literary form, 008/33")->setFocus();
    Type("1");
    QLineEdit* date = Named<QLineEdit>("Date 1, 008/07-10");
    date->setFocus();
    date->selectAll();
    Type("1999\t");
    CodedChoice* language = Choice("Language, 008/35-37");
    language->setFocus();
    language->lineEdit()->selectAll();
    Type("French\t");
    EXPECT_EQ(language->currentText(), "fre  French");
    Choice("Illustrations, 008/18-21, code 2 of 4")->setFocus();
    Type("b");
    window_->CheckNow();
    EXPECT_EQ(Saved(), BookOf("240101s1999    nyuab         000 1 fre d"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Saved(), BookOf("240101s1999    nyua          000 1 fre d"));
}

TEST_F(CodedEditorTest, AValueThatNoListHasIsShownAndStays) {
    Open(BookOf("240101s2o23    nyuq          00x 0 vvv d"));
    Press(Qt::Key_F8);
    EXPECT_EQ(Choice("Illustrations, 008/18-21, code 1 of 4")->currentText(), "q  not a code here");
    EXPECT_EQ(Choice("Language, 008/35-37")->currentText(), "vvv  not a code here");
    Choice("Language, 008/35-37")->setFocus();
    Type("nonsense\t");
    EXPECT_EQ(Choice("Language, 008/35-37")->currentText(), "vvv  not a code here");
    Choice("Literary form, 008/33")->setFocus();
    Type("1");
    EXPECT_EQ(Saved(), BookOf("240101s2o23    nyuq          00x 1 vvv d"));
}

TEST_F(CodedEditorTest, AnObsoleteCodeIsMarkedAndLeavesTheListWithItsValue) {
    Open(BookOf("240101s2023    nyua          000 0 fri d"));
    Press(Qt::Key_F8);
    CodedChoice* language = Choice("Language, 008/35-37");
    EXPECT_TRUE(language->currentText().contains("obsolete"))
        << language->currentText().toStdString();
    const int count = language->count();
    language->setFocus();
    language->lineEdit()->selectAll();
    Type("fry\t");
    EXPECT_EQ(language->count(), count - 1);
    EXPECT_EQ(Saved(), BookOf("240101s2023    nyua          000 0 fry d"));
}

TEST_F(CodedEditorTest, MaterialsAreGoneThroughAndTheWayBackLosesNothing) {
    Open(BookOf("240101s2023    nyuabf jo     110 1aeng d"));
    Press(Qt::Key_L, Qt::ControlModifier);
    CodedChoice* type = Choice("Type of record, leader/06");
    type->setFocus();
    Type("e");
    EXPECT_EQ(Fields().tabText(1), "008 maps");
    Rest();
    Type("g");
    EXPECT_EQ(Fields().tabText(1), "008 visual materials");
    Rest();
    Type("a");
    EXPECT_EQ(Fields().tabText(1), "008 books");
    window_->CheckNow();
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_EQ(Saved(), BookOf("240101s2023    nyuabf jo     110 1aeng d"));
}

// What fits another material is kept, and the rest is named.
TEST_F(CodedEditorTest, AnotherMaterialKeepsWhatFitsAndNamesTheRest) {
    Open(BookOf("240101s2023    nyuabf jo     110 1aeng d", "006s    j     d   0  "));
    Press(Qt::Key_L, Qt::ControlModifier);
    Choice("Type of record, leader/06")->setFocus();
    Type("g");
    const QString said = window_->statusBar()->currentMessage();
    for (const char* lost : {"Illustrations", "Literary form", "Biography", "Conference"}) {
        EXPECT_TRUE(said.contains(lost)) << lost << ": " << said.toStdString();
    }
    for (const char* kept : {"Target audience", "Form of item"}) {
        EXPECT_FALSE(said.contains(kept)) << kept << ": " << said.toStdString();
    }
    EXPECT_EQ(Cell("008").mid(22, 1), "j");
    EXPECT_EQ(Cell("008").mid(29, 1), "o");
    EXPECT_EQ(Cell("006"), "s    j     d   0  ");
    Press(Qt::Key_F6);
    Choice("Form of material, 006/00")->setFocus();
    Type("m");
    EXPECT_TRUE(Cell("006").startsWith("m")) << Cell("006").toStdString();
    EXPECT_FALSE(window_->statusBar()->currentMessage().isEmpty());
}

TEST_F(CodedEditorTest, A007IsAddedAndRemoved) {
    Press(Qt::Key_F7);
    const auto* advice = window_->Coded().findChild<QLabel*>();
    EXPECT_TRUE(advice->isVisible());
    QPushButton* add = nullptr;
    QPushButton* remove = nullptr;
    for (QPushButton* button : window_->Coded().findChildren<QPushButton*>()) {
        if (button->text() == "Add") add = button;
        if (button->text() == "Remove") remove = button;
    }
    ASSERT_TRUE(add != nullptr && remove != nullptr);
    Q_EMIT add->menu()->aboutToShow();
    for (QAction* action : add->menu()->actions().at(1)->menu()->actions()) {
        if (action->text() == "DVD video") action->trigger();
    }
    EXPECT_EQ(Fields().tabText(Fields().currentIndex()), "007 videorecording");
    EXPECT_EQ(Saved(), BookOf(k008, "007vd cvaizu"));
    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_EQ(Saved(), BookOf());
}

TEST_F(CodedEditorTest, AClickOnAByteAndAFindingLeadToTheElement) {
    Open(BookOf("240101s2023    nyua          000 0 ENG d"));
    Press(Qt::Key_F8);
    FindingsList& findings = window_->Findings();
    window_->CheckNow();
    for (int i = 0; i < findings.topLevelItemCount(); ++i) {
        if (findings.topLevelItem(i)->text(1) != "008/35-37") continue;
        Q_EMIT findings.itemClicked(findings.topLevelItem(i), 0);
    }
    EXPECT_EQ(PlaceText(window_->Coded().CurrentPlace()), "008/35-37");
    auto* strip = window_->Coded().findChild<CodedStrip*>();
    EXPECT_EQ(strip->First(), 35);
    Q_EMIT strip->Clicked(15);
    EXPECT_EQ(PlaceText(window_->Coded().CurrentPlace()), "008/15-17");
    EXPECT_EQ(strip->Last(), 17);
}

// A field that is shorter or longer than the format has it, or of no known material.
TEST_F(CodedEditorTest, FieldsThatAreNotAsTheFormatHasThemAreShownAndKept) {
    const std::string shorter = "240101s2023    nyu";
    const std::string longer = k008 + "more";
    for (const std::string& content : {shorter, longer, std::string()}) {
        SCOPED_TRACE(content);
        Open(BookOf(content, "007?x"));
        Press(Qt::Key_F8);
        Press(Qt::Key_F7);
        EXPECT_EQ(Fields().tabText(Fields().currentIndex()), "007 ?");
        Press(Qt::Key_F8);
        window_->Coded().Finish();
        EXPECT_FALSE(window_->isWindowModified());
        EXPECT_EQ(file_->Read(), BookOf(content, "007?x"));
    }
    Open(BookOf(shorter));
    Press(Qt::Key_F8);
    Choice("Illustrations, 008/18-21, code 1 of 4")->setFocus();
    Type("a");
    EXPECT_EQ(Saved(), BookOf(shorter + "a"));
}

TEST_F(CodedEditorTest, EveryControlHasANameOfItsOwn) {
    for (const int key : {Qt::Key_F8, Qt::Key_F7, Qt::Key_F6}) {
        Press(key);
        std::set<QString> names;
        for (const CodedChoice* choice : window_->Coded().findChildren<CodedChoice*>()) {
            if (!choice->isVisible()) continue;
            EXPECT_FALSE(choice->accessibleName().isEmpty());
            EXPECT_TRUE(names.insert(choice->accessibleName()).second)
                << choice->accessibleName().toStdString();
        }
    }
}

// A letter of two bytes, of which an element shows one: nobody has typed that.
TEST_F(CodedEditorTest, WhatNoElementCanHoldIsLeftAsItIs) {
    std::string content = k008;
    content.replace(10, 2, "\xC3\xA9");
    Open(BookOf(content) + BookOf());
    Press(Qt::Key_F8);
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(window_->Messages().isVisible());
    EXPECT_FALSE(window_->isWindowModified());
    QPlainTextEdit& box = window_->Lines().Box();
    box.selectAll();
    box.insertPlainText("=LDR  00000nam a2200000 a 4500\n=245  10$aLakes\n");
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), "Rivers /");
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), "Lakes");
}

}  // namespace
}  // namespace quillory
