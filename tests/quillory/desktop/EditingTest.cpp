#include <quillory/desktop/CharacterPalette.h>
#include <quillory/desktop/FieldPicker.h>
#include <quillory/desktop/FieldTree.h>
#include <quillory/desktop/IndicatorEdit.h>
#include <quillory/desktop/LinesEditor.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <functional>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// Letters by the keyboard and by the palette, undo, save: the bytes are those of MARC-8.
TEST_F(DeskTest, DiacriticsAreTypedUndoneAndSaved) {
    MarcEdit& box = Edit("245 $a");
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    Type(box, QString::fromUtf8("\u00C9c"));
    QTest::keyClick(&box, Qt::Key_M, Qt::ControlModifier);
    QTableWidget& grid = window_->Palette().Grid();
    ASSERT_TRUE(grid.hasFocus());
    EXPECT_EQ(OpenBox<MarcEdit>(), &box) << "the text stays open";
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(grid.currentItem()->toolTip(), "e with acute");
    grid.setCurrentCell(6, 13);
    EXPECT_EQ(grid.currentItem()->toolTip(), "Hacek");
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(box.Text(), QString::fromUtf8("\u00C9\u010D"));
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "Rivers /");
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), QString::fromUtf8("\u00C9\u010D"));
    const QRect cell = grid.visualItemRect(grid.item(0, 0));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_TRUE(box.hasFocus()) << "the mouse takes no focus";
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(OpenBox<MarcEdit>(), nullptr);
    EXPECT_EQ(Cell("245 $a"), QString::fromUtf8("\u00C9\u010D\u00E1"));
    Press(Qt::Key_S, Qt::ControlModifier);
    const std::string saved = file_->Read();
    EXPECT_NE(saved.find("\037a\xE2"
                         "E\xE9"
                         "c\xE2"
                         "a\037cJane"),
              std::string::npos)
        << saved;
    EXPECT_TRUE(saved.ends_with(Book("Lakes") + Book("A sea")));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), "Rivers /");
}

TEST_F(DeskTest, ThePaletteTypesIntoWhatIsInHand) {
    window_->Palette().Toggle();
    QTableWidget& grid = window_->Palette().Grid();
    const auto click = [&grid](int row, int column) {
        const QRect cell = grid.visualItemRect(grid.item(row, column));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
    };
    GoTo("245 $a");
    click(5, 2);
    ASSERT_NE(OpenBox<MarcEdit>(), nullptr) << "the text in hand is opened";
    EXPECT_EQ(OpenBox<MarcEdit>()->Text(), QString::fromUtf8("Rivers /\u00F1"));
    click(5, 7);
    EXPECT_EQ(OpenBox<MarcEdit>()->Text(), QString::fromUtf8("Rivers /\u00F1"))
        << "an empty cell types nothing";
    window_->List().setFocus();
    EXPECT_EQ(OpenBox<MarcEdit>(), nullptr);
    EXPECT_EQ(Cell("245 $a"), QString::fromUtf8("Rivers /\u00F1"));
    Press(Qt::Key_T, Qt::ControlModifier);
    QPlainTextEdit& lines = window_->Lines().Box();
    lines.moveCursor(QTextCursor::End);
    click(6, 0);
    EXPECT_TRUE(lines.toPlainText().contains(QChar(0x0301)));
}

// From the palette to another part of the window, the text is taken as when it is left.
TEST_F(DeskTest, ATextThatIsLeftByWayOfThePaletteIsTaken) {
    MarcEdit& box = Edit("245 $a");
    Type(box, "x");
    QTest::keyClick(&box, Qt::Key_M, Qt::ControlModifier);
    window_->List().setFocus();
    EXPECT_EQ(OpenBox<MarcEdit>(), nullptr);
    EXPECT_EQ(Cell("245 $a"), "Rivers /x");
}

TEST_F(DeskTest, ADelimiterIsTypedIntoALibraryText) {
    GoTo("245 $a");
    QTest::keyClick(&Table(), Qt::Key_Return);
    MarcEdit& box = *OpenBox<MarcEdit>();
    Type(box, " =");
    QTest::keyClick(&box, Qt::Key_D, Qt::ControlModifier);
    Type(box, QString::fromUtf8("bFl\u00FCsse /"));
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(Cell("245 $a"), "Rivers / =");
    EXPECT_EQ(Cell("245 $b"), QString::fromUtf8("Fl\u00FCsse /"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), "Rivers /");
}

// A record with Hebrew, Arabic and Chinese: one field is edited, all others keep their bytes.
TEST_F(DeskTest, OtherScriptsAreEditedAndSavedWhole) {
    const auto record = [](const std::string& hebrew, const std::string& romanized) {
        return MarcOf({"LDR00000nam a2200000 a 4500", "001h1", "24510\037a" + romanized,
                       "88010\0376245-01/(2/r\037a" + hebrew + "\037c\u0645\u062D\u0645\u062F",
                       "88000\0376500-02/$1\037a\u6771\u4EAC"});
    };
    Open(record("\u05E9\u05DC\u05D5\u05DD /", "Sha\u0304lom /"));
    MarcEdit& box = Edit("880 $a");
    EXPECT_FALSE(box.IsCoded());
    Type(box, QString::fromUtf8("\u05D0"));
    QTest::keyClick(&box, Qt::Key_Return);
    MarcEdit& latin = Edit("245 $a");
    EXPECT_TRUE(latin.IsCoded());
    QTest::keyClick(&latin, Qt::Key_End);
    Type(latin, "x");
    QTest::keyClick(&latin, Qt::Key_Return);
    ASSERT_TRUE(window_->Save());
    EXPECT_EQ(file_->Read(), record("\u05E9\u05DC\u05D5\u05DD /\u05D0", "Sha\u0304lom /x"));
}

// The values of the dictionary, by keys and by the mouse; what is no value changes nothing.
TEST_F(DeskTest, IndicatorsAreChosenFromTheirValues) {
    const auto open = [this](const std::string& place) {
        GoTo(place);
        Table().edit(Table().currentIndex());
        return OpenBox<IndicatorEdit>();
    };
    IndicatorEdit* values = open("245/1");
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(values->Value(), "1");
    QTest::keyClick(&values->List(), Qt::Key_Up);
    EXPECT_EQ(values->Value(), "0");
    QTest::keyClick(&values->List(), Qt::Key_Return);
    EXPECT_EQ(Cell("245/1", RecordModel::First), "0");

    GoTo("100/1");
    QTest::keyClick(&Table(), Qt::Key_3);
    values = OpenBox<IndicatorEdit>();
    ASSERT_NE(values, nullptr) << "a key opens the values and chooses one";
    EXPECT_EQ(values->List().currentItem()->text().left(1), "3");
    QTest::keyClick(&values->List(), Qt::Key_Tab);
    EXPECT_EQ(Cell("100/1", RecordModel::First), "3");
    QTest::keyClick(OpenBox<QWidget>(), Qt::Key_Escape);

    values = open("100/1");
    QTest::keyClick(&values->List(), Qt::Key_0);
    QTest::keyClick(&values->List(), Qt::Key_Escape);
    EXPECT_EQ(Cell("100/1", RecordModel::First), "3");
    values = open("100/1");
    const QRect first = values->List().visualItemRect(values->List().item(0));
    QTest::mouseClick(values->List().viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_EQ(Cell("100/1", RecordModel::First), "0");
    values = open("245/2");
    QTest::keyClick(&values->List(), Qt::Key_4);
    window_->List().setFocus();
    EXPECT_EQ(Cell("245/2", RecordModel::Second), "4") << "taken when it is left";
    ASSERT_TRUE(window_->Save());
    EXPECT_NE(file_->Read().find("04\037aRivers"), std::string::npos);
}

// A field is added by its group, by words of its name, or by a tag that the dictionary lacks.
TEST_F(DeskTest, AFieldIsAddedFromTheTreeOrByName) {
    const auto add = [this](const std::function<void(FieldPicker&)>& person) {
        Activate();
        QTimer::singleShot(0, [person] {
            auto* picker = qobject_cast<FieldPicker*>(QApplication::activeModalWidget());
            ASSERT_NE(picker, nullptr);
            person(*picker);
        });
        Press(Qt::Key_Return, Qt::ControlModifier);
        Table().Finish();
        return std::string(Table().CurrentPlace().Tag());
    };
    const auto* const byTree = "511";
    EXPECT_EQ(add([byTree](FieldPicker& picker) {
                  auto& tabs = *picker.findChild<QTabWidget*>();
                  tabs.setCurrentIndex(1);
                  auto& tree = *picker.findChild<FieldTree*>();
                  auto* ok = picker.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
                  EXPECT_FALSE(ok->isEnabled());
                  const auto found = tree.findItems(byTree, Qt::MatchContains | Qt::MatchRecursive);
                  ASSERT_FALSE(found.isEmpty());
                  QTreeWidgetItem* field = found.front();
                  EXPECT_EQ(field->parent()->text(0), "Notes");
                  tree.setCurrentItem(field);
                  EXPECT_EQ(field->checkState(0), Qt::Checked);
                  tree.setCurrentItem(tree.itemBelow(field));
                  EXPECT_EQ(field->checkState(0), Qt::Unchecked) << "one at a time";
                  tree.setCurrentItem(field);
                  QTest::keyClick(&tree, Qt::Key_Space);
                  EXPECT_FALSE(ok->isEnabled()) << "the space key clears its box";
                  QTest::keyClick(&tree, Qt::Key_Space);
                  QTest::keyClick(&tree, Qt::Key_Return);
              }),
              byTree);
    EXPECT_EQ(add([](FieldPicker& picker) {
                  auto& box = *picker.findChild<QLineEdit*>();
                  QTest::keyClicks(&box, "summary");
                  QTest::keyClick(&box, Qt::Key_Return);
              }),
              "520");
    EXPECT_EQ(add([](FieldPicker& picker) {
                  auto& box = *picker.findChild<QLineEdit*>();
                  QTest::keyClicks(&box, "987");
                  QTest::keyClick(&box, Qt::Key_Return);
              }),
              "987");
}

// Alt brings the next bar code of the settings where bar codes stand, and nowhere else.
TEST_F(DeskTest, TheNextBarCodeComesByAlt) {
    zorby::CHoldingsSelector::SetNextBarCode("T0099");
    Table().AddField("852");
    Table().Finish();
    MarcEdit& other = Edit("852 $a");
    EXPECT_EQ(other.Field().CanPasteNextNumber(), 0);
    Type(other, QString::fromUtf8("Main\u2021pB "));
    QTest::keyClick(&other, Qt::Key_Return);
    MarcEdit& box = Edit("852 $p");
    QTest::keyClick(&box, Qt::Key_Alt);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(Cell("852 $p"), "B T0099");
    EXPECT_EQ(zorby::CHoldingsSelector::GetNextBarCode(), "T0100");

    // What is selected stays if another window has left no bar code meanwhile.
    MarcEdit& again = Edit("852 $p");
    zorby::CHoldingsSelector::SetNextBarCode("");
    again.Field().SetSel(0, 3);
    QTest::keyClick(&again, Qt::Key_Alt);
    QTest::keyClick(&again, Qt::Key_Return);
    EXPECT_EQ(Cell("852 $p"), "B T0099");
}

// However soon a person is elsewhere: nothing of the line is left to be done later.
TEST_F(DeskTest, EnterTakesALineAtOnce) {
    GoTo("245");
    Press(Qt::Key_F2);
    auto* line = OpenBox<QLineEdit>();
    ASSERT_NE(line, nullptr);
    line->setText("246");
    QTest::keyClick(line, Qt::Key_Return);
    GoTo("100");
    QCoreApplication::processEvents();
    EXPECT_EQ(Cell("246 $a"), "Rivers /");
}

// What is undone takes the row in hand away, and the cursor goes to one that is there.
TEST_F(DeskTest, TheCursorLeavesARowThatIsUndone) {
    GoTo("245 $c");
    Press(Qt::Key_D, Qt::ControlModifier);
    Table().Finish();
    EXPECT_EQ(PlaceText(Table().CurrentPlace()), "245 $b");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(PlaceText(Table().CurrentPlace()), "245 $c");
    EXPECT_EQ(Table().Model().rowCount(), 6);
}

TEST_F(DeskTest, TabLeadsThroughWhatCanBeTypedIn) {
    MarcEdit& box = Edit("245 $a");
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(PlaceText(Table().CurrentPlace()), "245 $c");
    EXPECT_EQ(Table().currentIndex().column(), RecordModel::Code);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Table().currentIndex().column(), RecordModel::Text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Table().currentIndex(), Table().Model().index(0, RecordModel::Text));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(PlaceText(Table().CurrentPlace()), "245 $c");
}

TEST_F(DeskTest, UndoAndRedoLeadToWhatTheyChange) {
    TypeInto("245 $c", "John Roe.");
    GoTo("001");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(PlaceText(Table().CurrentPlace()), "245 $a");
    GoTo("LDR");
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(PlaceText(Table().CurrentPlace()), "245 $a");
    EXPECT_EQ(Cell("245 $c"), "John Roe.");
}

// A field that ends with a delimiter, or has two together, would not be made of subfields.
TEST_F(DeskTest, ADelimiterWithoutACodeIsNotTaken) {
    TypeInto("245 $a", QString::fromUtf8("Rivers :\u2021\u2021bthree essays\u2021"));
    EXPECT_EQ(Cell("245 $a"), "Rivers :");
    EXPECT_EQ(Cell("245 $b"), "three essays");
    EXPECT_EQ(Cell("245 $c"), "Jane Doe.");
}

}  // namespace
}  // namespace quillory
