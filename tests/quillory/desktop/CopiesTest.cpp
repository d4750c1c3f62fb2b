#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/FindingsList.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/Settings.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QWheelEvent>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

class CopiesTest : public DeskTest {
protected:
    void SetUp() override {
        PutInForce(*FindHoldingsType("1"));
        DeskTest::SetUp();
    }

    const SettingsKeeper settingsAreKept_;

    QTableView& Copies() { return window_->Copies().Table(); }
    QString Copy(int row, const QString& element) {
        const QAbstractItemModel& model = *Copies().model();
        for (int column = 0; column < model.columnCount(); ++column) {
            if (model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString() == element) {
                return model.index(row, column).data().toString();
            }
        }
        ADD_FAILURE() << "no column " << element.toStdString();
        return {};
    }
    QString TabText() const { return window_->findChildren<QTabWidget*>().value(0)->tabText(2); }
};

TEST_F(CopiesTest, TwoCopiesAreTypedWithTheNextBarCodesAndSaved) {
    zorby::CHoldingsSelector::SetNextBarCode("T0099");
    EXPECT_EQ(TabText(), "Copies");
    Press(Qt::Key_K, Qt::ControlModifier);
    Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(TabText(), "Copies (1)");
    EXPECT_EQ(Copy(0, "Bar code"), "T0099");
    QTest::keyClick(&Copies(), Qt::Key_Home);
    QTest::keyClicks(&Copies(), "F");
    QWidget* box = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<QLineEdit*>(box), nullptr);
    QTest::keyClicks(box, "IC DOE");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Copy(0, "Call number"), "FIC DOE");
    window_->Copies().NewLikeThis();
    EXPECT_EQ(Copy(1, "Call number"), "FIC DOE");
    EXPECT_EQ(Copy(1, "Bar code"), "T0100");
    EXPECT_EQ(Cell("852[2] $p"), "T0100");
    EXPECT_TRUE(window_->Save());
    EXPECT_NE(file_->Read().find("\037hFIC DOE\037pT0099\036"), std::string::npos) << file_->Read();
    EXPECT_EQ(zorby::CHoldingsSelector::GetNextBarCode(), "T0101");
}

TEST_F(CopiesTest, ACopyThatIsRemovedComesBackWithUndo) {
    Table().AddField("852");
    Table().Finish();
    TypeInto("852 $a", QString::fromUtf8("Kept\u2021pB1"));
    Press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(Copy(0, "Bar code"), "B1");
    EXPECT_EQ(Copy(0, "Kept as it is"), "852 $a Kept");
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(TabText(), "Copies");
    EXPECT_FALSE(Copies().isVisible());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Copy(0, "Bar code"), "B1");
    window_->ShowRecord(1);
    EXPECT_EQ(TabText(), "Copies");
    EXPECT_EQ(window_->OpenDocument()->File().Changes(), 1U);
}

TEST_F(CopiesTest, ASystemIsChosenAndReadsTheCopiesInItsWay) {
    Table().AddField("949");
    Table().Finish();
    TypeInto("949 $a", QString::fromUtf8("Main\u2021bB1"));
    Press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(TabText(), "Copies");
    QComboBox& systems = window_->Copies().Systems();
    const int dynix = systems.findText("Dynix");
    ASSERT_GE(dynix, 0);
    const std::string before = ReadHoldingsSetting("HoldingsType");
    QWheelEvent wheel({5, 5}, systems.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&systems, &wheel);
    EXPECT_EQ(ReadHoldingsSetting("HoldingsType"), before);
    systems.setCurrentIndex(dynix);
    Q_EMIT systems.activated(dynix);
    EXPECT_EQ(TabText(), "Copies (1)");
    EXPECT_EQ(Copy(0, "Bar code"), "B1");
    EXPECT_EQ(Copy(0, "Agency"), "Main");
    EXPECT_EQ(ReadHoldingsSetting("HoldingsType"), "Dynix");
}

// Fields that a system knows and the format does not are known as long as it is in force.
TEST_F(CopiesTest, TheFieldsOfAChosenSystemAreKnownAtOnce) {
    ChangeHoldingsSetting("LWLPCallTag", "021");
    ChangeHoldingsSetting("LWLPSubTags", "xy");
    Open(MarcOf({"LDR00000nam a2200000 a 4500", "001a", "021  \037xFIC", "24500\037aRivers",
                 "900  \037aFIC"}));
    const auto choose = [this](const QString& name) {
        QComboBox& systems = window_->Copies().Systems();
        const int row = systems.findText(name);
        ASSERT_GE(row, 0) << name.toStdString();
        systems.setCurrentIndex(row);
        Q_EMIT systems.activated(row);
    };
    const auto isFoundFaulty = [this](const QString& place) {
        return !window_->Findings().findItems(place, Qt::MatchStartsWith, 1).isEmpty();
    };
    EXPECT_TRUE(isFoundFaulty("021"));
    choose("LWLP, first release");
    EXPECT_FALSE(isFoundFaulty("021"));
    choose("Alexandria");
    EXPECT_TRUE(isFoundFaulty("021"));
    EXPECT_EQ(Cell("900 $a", RecordModel::Name), "Alexandria default call number");
}

TEST_F(CopiesTest, WhatIsStillBeingTypedIsTakenWhenAPersonGoesOn) {
    Press(Qt::Key_K, Qt::ControlModifier);
    Press(Qt::Key_Return, Qt::ControlModifier);  // no next bar code: it is asked for
    QWidget* box = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<QLineEdit*>(box), nullptr);
    QTest::keyClicks(box, "B7");
    EXPECT_TRUE(window_->Save());
    EXPECT_NE(file_->Read().find("852"), std::string::npos);
    EXPECT_NE(file_->Read().find("\037pB7\036"), std::string::npos) << file_->Read();
}

}  // namespace
}  // namespace quillory
