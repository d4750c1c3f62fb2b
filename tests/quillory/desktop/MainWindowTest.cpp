#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RepairDialog.h>
#include <quillory/exchange/Output.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

TEST_F(DeskTest, ListsRecordsAndShowsTheFirst) {
    EXPECT_EQ(window_->List().model()->rowCount(), 3);
    EXPECT_EQ(Listed(1, 1), "Lakes");
    EXPECT_EQ(Listed(1, 2), "Doe, Jane.");
    EXPECT_EQ(Listed(1, 3), "2023");
    EXPECT_EQ(Listed(1, 4), "books");
    EXPECT_EQ(Listed(1, 5), "2");
    EXPECT_EQ(Cell("245 $a"), "Rivers /");
    EXPECT_EQ(Cell("245 $c", RecordModel::Name), "Statement of responsibility, etc.");
}

// Open, edit, undo, redo, save: other bytes stay.
TEST_F(DeskTest, AnEditedRecordIsSavedAndNothingElse) {
    QTest::keyClick(&window_->List(), Qt::Key_Down);
    ASSERT_EQ(window_->Current(), 1U);
    TypeInto("245 $a", "Łąkes & ponds /");
    EXPECT_EQ(Cell("245 $a"), "Łąkes & ponds /");
    window_->CheckNow();
    EXPECT_TRUE(Listed(1, 0).contains(u'✎'));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), "Lakes /");
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(window_->Messages().Text(), "");
    EXPECT_EQ(window_->statusBar()->currentMessage(), "Saved.");
    EXPECT_FALSE(window_->isWindowModified());
    const std::string saved = file_->Read();
    EXPECT_TRUE(saved.starts_with(Book("Rivers")));
    EXPECT_TRUE(saved.ends_with(Book("A sea")));
    EXPECT_NE(saved.find("\037a\xA1\xF1"
                         "akes & ponds /\037c"),
              saved.npos)
        << saved;
}

TEST_F(DeskTest, FieldsAndSubfieldsComeAndGoByKeys) {
    GoTo("245 $a");
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $b", RecordModel::Code), "$b");
    Press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(Cell("245 $b", RecordModel::Code), "$a");
    Table().AddField("650");
    EXPECT_EQ(Cell("650 $a", RecordModel::Tag), "650");
    Table().Finish();
    Press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_LT(Table().Model().IndexOf(*ParsePlace("650")).row(),
              Table().Model().IndexOf(*ParsePlace("245")).row());
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Cell("650 $a"), "");
    GoTo("100 $a");
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    ASSERT_EQ(window_->Current(), 1U);
    GoTo("245 $a");
    Press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Cell("100[2] $a"), "Doe, Jane.");
}

TEST_F(DeskTest, LinesOfOtherProgramsArePastedAllOrNone) {
    const auto paste = [this](const QString& lines) {
        QGuiApplication::clipboard()->setText(lines);
        GoTo("245 $a");
        Press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        return window_->Messages().Text();
    };
    EXPECT_TRUE(paste("=500  \\\\$aOne\n=50  \\\\$aTwo").contains("Line 2 of the clipboard"));
    EXPECT_TRUE(paste("One, two").contains("no fields"));
    EXPECT_EQ(Cell("500 $a"), "");
    window_->Messages().hide();
    paste("=LDR  00000nam\\a2200000\\a\\4500\r\n=500  \\\\$aOne\r\n=500  \\\\$aTwo\r\n");
    EXPECT_EQ(Cell("500[1] $a"), "One");
    EXPECT_EQ(Cell("500[2] $a"), "Two");
}

TEST_F(DeskTest, WhatCantStandInACellIsSaid) {
    const auto type = [this](const std::string& place, int column, const QString& text) {
        window_->statusBar()->clearMessage();
        GoTo(place);
        Table().setCurrentIndex(Table().currentIndex().siblingAtColumn(column));
        Table().edit(Table().currentIndex());
        QWidget* box = QApplication::focusWidget();
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
        QTest::qWait(600);  // what is being typed is kept, of which nothing is said
        EXPECT_EQ(window_->statusBar()->currentMessage(), "");
        QTest::keyClick(box, Qt::Key_Return);
        return window_->statusBar()->currentMessage();
    };
    EXPECT_TRUE(type("LDR", RecordModel::Text, "00000nam").contains("24 characters"));
    EXPECT_TRUE(type("245 $a", RecordModel::Tag, "24").contains("three digits"));
    EXPECT_TRUE(type("245 $a", RecordModel::Code, " ").contains("one letter"));
    EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(DeskTest, ARecordIsShownByItsNumberOrItsControlNumber) {
    const auto goTo = [this](const QString& typed) {
        Activate();
        QTimer::singleShot(0, [typed] {
            auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->setTextValue(typed);
            dialog->accept();
        });
        Press(Qt::Key_G, Qt::ControlModifier);
        Wait();
        return window_->Current();
    };
    EXPECT_EQ(goTo("2"), 1U);
    EXPECT_EQ(goTo("A sea"), 2U);
    EXPECT_EQ(goTo("99"), 2U);
    EXPECT_EQ(window_->statusBar()->currentMessage(), "No record is found.");
}

TEST_F(DeskTest, KeysLeadFromTheListIntoTheRecord) {
    QWidget& list = window_->List();
    const auto press = [&list](Qt::Key key, Qt::KeyboardModifiers with) {
        list.setFocus();
        QTest::keyClick(&list, key, with);
        return QApplication::focusWidget();
    };
    EXPECT_EQ(press(Qt::Key_Return, {}), &Table());
    EXPECT_EQ(press(Qt::Key_Down, Qt::ControlModifier), &Table());
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(press(Qt::Key_Return, {}), &window_->Lines().Box());
    Press(Qt::Key_F8);
    EXPECT_TRUE(window_->Coded().isAncestorOf(press(Qt::Key_Return, {})));
}

TEST_F(DeskTest, ADelimiterThatIsTypedDividesAText) {
    TypeInto("245 $a", QString::fromUtf8("Rivers :‡ba history /"));
    EXPECT_EQ(Cell("245 $b"), "a history /");
}

TEST_F(DeskTest, SignsThatStoodInATextStayText) {
    Press(Qt::Key_T, Qt::ControlModifier);
    window_->Lines().Box().appendPlainText(QString::fromUtf8("=500  \\\\$aA‡b and\u00A0ǂc"));
    ASSERT_TRUE(window_->Lines().Finish());
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(Cell("500 $a"), QString::fromUtf8("A‡b and\u00A0ǂc"));
    TypeInto("500 $a", QString::fromUtf8("A‡b or\u00A0ǂc‡5Here"));
    EXPECT_EQ(Cell("500 $a"), QString::fromUtf8("A‡b or\u00A0ǂc"));
    EXPECT_EQ(Cell("500 $5"), "Here");
}

TEST_F(DeskTest, TextAndRowsAreOneRecord) {
    Press(Qt::Key_T, Qt::ControlModifier);
    QPlainTextEdit& box = window_->Lines().Box();
    EXPECT_TRUE(box.toPlainText().contains("=245  10$aRivers /$cJane Doe."));
    box.appendPlainText(QString::fromUtf8("=500  \\\\$aÀ voir."));
    EXPECT_TRUE(window_->Lines().Finish());
    EXPECT_EQ(Cell("500 $a"), QString::fromUtf8("À voir."));
    box.appendPlainText("=24");
    EXPECT_FALSE(window_->Lines().Finish());
    window_->ShowRecord(1);
    EXPECT_EQ(window_->Current(), 0U);  // what was typed is not lost
    Press(Qt::Key_T, Qt::ControlModifier);
    Press(Qt::Key_F8);
    EXPECT_TRUE(box.isVisible());
    EXPECT_TRUE(box.toPlainText().endsWith("=24"));
    box.appendPlainText("=500  \\\\$aMore.");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(box.toPlainText().endsWith("=24"));
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(box.toPlainText().endsWith("$aMore."));
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    window_->ShowRecord(1);
    EXPECT_EQ(window_->Current(), 1U);
}

TEST_F(DeskTest, FindingsLeadToTheirPlaces) {
    window_->ShowRecord(0);
    FindingsList& findings = window_->Findings();
    bool isLed = false;
    for (int i = 0; i < findings.topLevelItemCount(); ++i) {
        if (findings.topLevelItem(i)->text(1) != "008/35-37") continue;
        Q_EMIT findings.itemClicked(findings.topLevelItem(i), 0);
        isLed = Table().CurrentPlace().Tag() == "008";
    }
    EXPECT_TRUE(isLed);
}

TEST_F(DeskTest, RepairsAreTickedAndUndone) {
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<RepairDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->accept();
    });
    Press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(Cell("008").contains("eng"));
    Activate();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Cell("008").contains("ENG"));
}

TEST_F(DeskTest, WordsAndExpressionsFilterAndColumnsSort) {
    window_->Filter("doe lakes");
    Wait();
    EXPECT_EQ(window_->List().model()->rowCount(), 1);
    window_->Filter("245a starts \"R\" or 245a starts \"L\"");
    Wait();
    EXPECT_EQ(window_->List().model()->rowCount(), 2);
    window_->Filter("245a contians x");
    EXPECT_TRUE(window_->Messages().Text().contains("contians"));
    window_->Filter("");
    Wait();
    window_->ShowRecord(0);
    window_->List().sortByColumn(1, Qt::AscendingOrder);
    Wait();
    EXPECT_EQ(Listed(0, 1), "A sea");
    EXPECT_EQ(Listed(2, 1), "Rivers");
    EXPECT_EQ(window_->Current(), 0U);
    EXPECT_EQ(window_->List().currentIndex().row(), 2);
}

TEST_F(DeskTest, EnterShowsTheFirstRecordThatIsFound) {
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), "sea");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Wait();
    EXPECT_EQ(window_->Current(), 2U);
    EXPECT_TRUE(window_->List().hasFocus());
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), "doe");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Wait();
    EXPECT_EQ(window_->Current(), 2U);  // which is one of them
    Press(Qt::Key_F, Qt::ControlModifier);
    QWidget* box = QApplication::focusWidget();
    QTest::keyClicks(box, "245a contians x");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->hasFocus());  // to be put right
    window_->Filter("rivers");
    Wait();
    window_->ShowRecord(1);
    EXPECT_FALSE(window_->List().selectionModel()->hasSelection());
}

TEST_F(DeskTest, AFileOfAnotherProgramIsNotOverwritten) {
    TypeInto("245 $a", "Mine /");
    WriteOutput(file_->Path(), Book("Theirs"));
    EXPECT_FALSE(window_->Save());
    EXPECT_TRUE(window_->Messages().Text().contains("Another program"));
    EXPECT_EQ(file_->Read(), Book("Theirs"));
}

TEST_F(DeskTest, SavedAsAnotherFileTheListAndTheRecordInHandStay) {
    Open(Book("Rivers") + "00099nam  22000something\x1D" + Book("Lakes") + Book("Lagoons"));
    window_->Filter("245a starts L");
    window_->List().sortByColumn(1, Qt::AscendingOrder);
    Wait();
    window_->ShowRecord(2);
    const TemporaryFile other("", ".mrk");
    ASSERT_TRUE(window_->SaveAs(QString::fromStdString(other.Path())));
    Wait();
    EXPECT_EQ(Cell("245 $a"), "Lakes /");
    EXPECT_EQ(window_->List().model()->rowCount(), 2);
    EXPECT_EQ(Listed(0, 1), "Lagoons");
    EXPECT_EQ(window_->List().currentIndex().row(), 1);
}

// A name without an ending gets that of the form.
TEST_F(DeskTest, TheFormThatIsChosenInSaveAsIsWritten) {
    const QTemporaryDir folder;
    QTimer::singleShot(0, [&folder] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        const QString form = dialog->nameFilters().filter("*.mrk").value(0);
        dialog->selectNameFilter(form);
        Q_EMIT dialog->filterSelected(form);
        dialog->selectFile(folder.filePath("records"));
        static_cast<QDialog*>(dialog)->accept();
    });
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(QFile::exists(folder.filePath("records.mrk")))
        << window_->windowTitle().toStdString();
}

TEST_F(DeskTest, AFileThatWasRemovedIsSavedElsewhere) {
    TypeInto("245 $a", "Mine /");
    std::filesystem::remove(file_->Path());
    EXPECT_FALSE(window_->Save());
    EXPECT_TRUE(window_->Messages().Text().contains("not there any more"));
    const TemporaryFile other("", ".mrk");
    std::filesystem::remove(other.Path());
    EXPECT_TRUE(window_->SaveAs(QString::fromStdString(other.Path())));
    EXPECT_NE(other.Read().find("$aMine /$cJane Doe."), std::string::npos);
    std::filesystem::remove(other.Path());
    TypeInto("245 $a", "Again /");
    EXPECT_TRUE(window_->SaveAs(QString::fromStdString(other.Path()))) << "by the name that it had";
    EXPECT_NE(other.Read().find("$aAgain /$cJane Doe."), std::string::npos);
    TypeInto("245 $a", "And again /");
    EXPECT_TRUE(window_->Save());
}

TEST_F(DeskTest, AFileThatIsOpenedAgainIsShownAsItWasSaved) {
    TypeInto("245 $a", "Mine /");
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->button(QMessageBox::Save)->click();
    });
    EXPECT_TRUE(window_->Open(Path()));
    Wait();
    EXPECT_EQ(Cell("245 $a"), "Mine /");
    TypeInto("245 $a", "Mine again /");
    EXPECT_TRUE(window_->Save());
}

TEST_F(DeskTest, SavedInAnotherFormTheWindowGoesOnWithIt) {
    TypeInto("245 $a", "Seen /");
    const TemporaryFile other("", ".mrk");
    ASSERT_TRUE(window_->SaveAs(QString::fromStdString(other.Path())));
    Wait();
    EXPECT_NE(other.Read().find("$aSeen /$cJane Doe."), std::string::npos);
    EXPECT_EQ(file_->Read(), Book("Rivers") + Book("Lakes") + Book("A sea"));
    TypeInto("245 $a", "Again /");
    EXPECT_TRUE(window_->Save());
    EXPECT_NE(other.Read().find("$aAgain /$cJane Doe."), std::string::npos);
}

TEST_F(DeskTest, ARecordThatNoFormCanHoldStaysUnsaved) {
    TypeInto("245 $a", QString(10000, u'x'));
    EXPECT_FALSE(window_->Save());
    EXPECT_TRUE(window_->Messages().Text().contains("record 1"));
    EXPECT_EQ(file_->Read(), Book("Rivers") + Book("Lakes") + Book("A sea"));
}

TEST_F(DeskTest, DamagedRecordsAreShownAndKept) {
    const std::string damaged = "00099nam  22000something\x1D";
    Open(Book("Rivers") + damaged + Book("Lakes"));
    EXPECT_EQ(window_->List().model()->rowCount(), 3);
    window_->ShowRecord(1);
    EXPECT_EQ(Table().Model().rowCount(), 0);
    window_->ShowRecord(2);
    TypeInto("245 $a", "Ponds /");
    EXPECT_TRUE(window_->Save());
    EXPECT_EQ(file_->Read().substr(0, Book("Rivers").size() + damaged.size()),
              Book("Rivers") + damaged);
}

TEST_F(DeskTest, AClosingWindowAsksForChangesAlone) {
    TypeInto("245 $a", "Mine /");
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->button(QMessageBox::Cancel)->click();
    });
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(window_->Save());
    EXPECT_TRUE(window_->close());
}

// What a screen reader says.
TEST_F(DeskTest, EveryPartHasAName) {
    for (const QWidget* widget : window_->findChildren<QWidget*>()) {
        const bool takesKeys = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible();
        const bool isOwn =
            widget->parent() != nullptr && !widget->objectName().startsWith("qt_") && takesKeys;
        const bool isNamed =
            !widget->accessibleName().isEmpty() || !widget->property("text").toString().isEmpty();
        const bool isPart = widget->inherits("QAbstractItemView") ||
                            widget->inherits("QLineEdit") || widget->inherits("QPlainTextEdit");
        EXPECT_TRUE(!isOwn || !isPart || isNamed)
            << widget->metaObject()->className() << widget->objectName().toStdString();
    }
    const QModelIndex title = Table().Model().IndexOf(*ParsePlace("245 $a"));
    EXPECT_EQ(title.data(Qt::AccessibleTextRole).toString().section(u';', 0, 0),
              "245 $a Title Statement – Title: Rivers /");
}

}  // namespace
}  // namespace quillory
