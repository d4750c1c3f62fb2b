#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/store/HomeFolder.h>

#include <QAction>
#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <fstream>
#include <tests/quillory/desktop/WindowsTest.h>

namespace quillory {
namespace {

class JournalTest : public WindowsTest {
protected:
    bool Open(MainWindow& window) { return OpenIn(window, file_.Path()); }

    TemporaryFile file_{Book("One") + Book("Two") + Book("Three"), ".mrc"};
};

TEST_F(JournalTest, WhatWasTypedIsOfferedAfterACrashAndForgottenAfterASave) {
    auto window = NewWindow();
    ASSERT_TRUE(Open(*window));
    window->ShowRecord(1);
    TypeAt(*window, "245 $c", " And more");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    window->ShowRecord(2);
    TypeAt(*window, "245 $c", " Still being typed");
    Rest();
    Crash(window);
    window = NewWindow();
    QString question;
    Answer("&Take Up", &question);
    ASSERT_TRUE(Open(*window));
    EXPECT_TRUE(question.contains("Take up the changes of")) << question.toStdString();
    EXPECT_EQ(window->OpenDocument()->File().Changes(), 2U);
    window->ShowRecord(2);
    EXPECT_TRUE(Cell(*window, "245 $c").contains("Still being typed"));
    EXPECT_TRUE(window->Save());
    EXPECT_TRUE(file_.Read().starts_with(Book("One")));
    EXPECT_NE(file_.Read().find("And more"), std::string::npos);
    EXPECT_NE(file_.Read().find("Still being typed"), std::string::npos);
    Crash(window);
    window = NewWindow();
    ASSERT_TRUE(Open(*window));  // without a question
    EXPECT_FALSE(window->OpenDocument()->IsChanged());
}

TEST_F(JournalTest, WhatWasDiscardedOrTakenBackIsNotOffered) {
    auto window = NewWindow();
    ASSERT_TRUE(Open(*window));
    TypeAt(*window, "245 $c", " No");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Rest();
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    Rest();
    Crash(window);
    window = NewWindow();
    ASSERT_TRUE(Open(*window));
    EXPECT_FALSE(window->OpenDocument()->IsChanged());
    TypeAt(*window, "245 $c", " Again no");
    Rest();
    Crash(window);
    window = NewWindow();
    Answer("&Discard");
    ASSERT_TRUE(Open(*window));
    EXPECT_FALSE(window->OpenDocument()->IsChanged());
    EXPECT_EQ(file_.Read(), Book("One") + Book("Two") + Book("Three"));
}

TEST_F(JournalTest, ChangesOfARecordThatAnotherProgramReplacedAreKeptApart) {
    auto window = NewWindow();
    ASSERT_TRUE(Open(*window));
    TypeAt(*window, "245 $c", " Mine");
    Rest();
    Crash(window);
    WriteOutput(file_.Path(), Book("Another") + Book("Two"));
    window = NewWindow();
    Answer("&Take Up");
    ASSERT_TRUE(Open(*window));
    EXPECT_FALSE(window->OpenDocument()->IsChanged());
    const QString said = window->Messages().Text();
    const QString path =
        said.mid(said.indexOf(QString::fromStdString(HomeFolder().string()))).chopped(1);
    Input kept(path.toStdString());
    EXPECT_NE(std::string(ReadWhole(kept)).find("Jane Doe. Mine"), std::string::npos)
        << said.toStdString();
    EXPECT_EQ(file_.Read(), Book("Another") + Book("Two"));
}

TEST_F(JournalTest, AFileThatAnotherProgramWritesIsReadAgainUnderTheChanges) {
    auto window = NewWindow();
    ASSERT_TRUE(Open(*window));
    for (const std::size_t record : {0U, 1U}) {
        window->ShowRecord(record);
        TypeAt(*window, "245 $c", " Mine");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    std::ofstream(file_.Path()) << Book("One") << Book("Theirs") << Book("Three");  // in place
    EXPECT_FALSE(window->Save());
    for (QAction* action : window->findChildren<QAction*>()) {
        if (action->text() == "Re&load") action->trigger();
    }
    Wait(*window);
    const QString said = window->Messages().Text();
    EXPECT_TRUE(said.contains("Changes were taken up, and are not saved yet: 1."))
        << said.toStdString();
    EXPECT_TRUE(said.contains("kept-")) << said.toStdString();
    EXPECT_EQ(Cell(*window, "245 $c"), "Jane Doe. Mine");
    EXPECT_TRUE(window->Save());
    EXPECT_NE(file_.Read().find("Jane Doe. Mine"), std::string::npos);
    EXPECT_TRUE(file_.Read().ends_with(Book("Theirs") + Book("Three")));
}

// No window lets a person write what can't be saved.
TEST_F(JournalTest, ASecondWindowSaysAtOnceWhoHasTheFileAndOnlyReadsIt) {
    auto first = NewWindow();
    ASSERT_TRUE(Open(*first));
    auto second = NewWindow();
    ASSERT_TRUE(Open(*second));  // without a question
    EXPECT_TRUE(second->Hold().Text().contains("program " +
                                               QString::number(QCoreApplication::applicationPid())))
        << second->Hold().Text().toStdString();
    EXPECT_FALSE(second->Hold().TakeButton().isEnabled());
    EXPECT_TRUE(first->Hold().Text().isEmpty());
    second->Table().GoTo(*ParsePlace("245 $c"));
    const QString before = Cell(*second, "245 $c");
    QTest::keyClick(&second->Table(), Qt::Key_Return);
    QTest::keyClicks(&second->Table(), "Mine");
    QTest::keyClick(second.get(), Qt::Key_Delete, Qt::ControlModifier);
    QTest::keyClick(second.get(), Qt::Key_T, Qt::ControlModifier);
    QTest::keyClicks(&second->Lines().Box(), "Mine");
    QTest::keyClick(second.get(), Qt::Key_T, Qt::ControlModifier);
    second->CheckNow();
    EXPECT_EQ(Cell(*second, "245 $c"), before);
    EXPECT_FALSE(second->OpenDocument()->IsChanged());
    EXPECT_FALSE(second->Save());
    const TemporaryFile other("", ".mrc");
    EXPECT_TRUE(second->SaveAs(QString::fromStdString(other.Path())));
    EXPECT_TRUE(second->Hold().Text().isEmpty());
    TypeAt(*second, "245 $c", " Mine");
    EXPECT_TRUE(second->Save());
    EXPECT_NE(other.Read().find("Jane Doe. Mine"), std::string::npos);
    EXPECT_FALSE(second->SaveAs(QString::fromStdString(file_.Path())));
    EXPECT_TRUE(second->Messages().Text().contains("open in another window"));
    EXPECT_EQ(file_.Read(), Book("One") + Book("Two") + Book("Three"));
    EXPECT_TRUE(first->Save());
}

TEST_F(JournalTest, AFileThatTheOtherWindowHasClosedIsTakenOver) {
    auto second = NewWindow();
    auto first = NewWindow();
    ASSERT_TRUE(Open(*first));
    ASSERT_TRUE(Open(*second));
    second->ShowRecord(1);
    TypeAt(*first, "245 $c", " Saved");
    ASSERT_TRUE(first->Save());
    TypeAt(*first, "245 $c", " Left");
    Rest();
    Crash(first);
    ASSERT_TRUE(QTest::qWaitFor([&] { return second->Hold().TakeButton().isEnabled(); }));
    Answer("&Take Up");
    QTest::mouseClick(&second->Hold().TakeButton(), Qt::LeftButton);
    EXPECT_TRUE(second->Hold().Text().isEmpty());
    EXPECT_EQ(Cell(*second, "245 $c"), "Jane Doe. Saved Left");
    TypeAt(*second, "245 $c", " Mine");
    EXPECT_TRUE(second->Save());
    EXPECT_NE(file_.Read().find("Jane Doe. Saved Left Mine"), std::string::npos) << file_.Read();
}

}  // namespace
}  // namespace quillory
