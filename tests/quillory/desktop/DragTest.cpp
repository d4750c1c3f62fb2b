#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QWindow>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

class DragTest : public DeskTest {
protected:
    // The middle of a cell.
    QPoint At(const std::string& place, int column = RecordModel::Text) {
        const QModelIndex cell = Table().Model().IndexOf(*ParsePlace(place));
        return Table().visualRect(cell.siblingAtColumn(column)).center();
    }
    // Just above the row of a place, or below it.
    QPoint Above(const std::string& place) { return At(place) - QPoint(0, 6); }
    QPoint Below(const std::string& place) { return At(place) + QPoint(0, 6); }

    // What the system tells of something that is dragged and dropped. Whether it was taken.
    bool Carry(QMimeData& data, QPoint to, Qt::KeyboardModifiers with) {
        const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
        const auto action = with == Qt::ControlModifier ? Qt::CopyAction : Qt::MoveAction;
        QWidget* rows = Table().viewport();
        QDragEnterEvent enter(to, actions, &data, Qt::LeftButton, with);
        QDragMoveEvent move(to, actions, &data, Qt::LeftButton, with);
        QDropEvent drop(to, actions, &data, Qt::LeftButton, with);
        for (QDropEvent* event :
             {static_cast<QDropEvent*>(&enter), static_cast<QDropEvent*>(&move), &drop}) {
            event->setDropAction(action);
            event->setAccepted(false);
            QCoreApplication::sendEvent(rows, event);
            if (!event->isAccepted()) return false;
        }
        return true;
    }
    // By the mouse, from where the drag begins.
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers with = Qt::NoModifier) {
        Table().SetCarrier([&](QDrag& drag) {
            carried_ = drag.mimeData()->text();
            isTaken_ = Carry(*drag.mimeData(), to, with);
        });
        QWindow* screen = window_->windowHandle();
        const QPoint begin = Table().viewport()->mapTo(window_.get(), from);
        QTest::mousePress(screen, Qt::LeftButton, with, begin);
        QTest::mouseMove(screen, begin + QPoint(4, 0));
        QTest::mouseMove(screen, begin + QPoint(30, 0));
        QTest::mouseRelease(screen, Qt::LeftButton, with, begin + QPoint(30, 0));
    }
    // From another window, or another program.
    bool Drop(const QString& text, QPoint to) {
        QMimeData data;
        data.setText(text);
        return Carry(data, to, Qt::NoModifier);
    }
    // The tags and codes of all rows, "001 008 100a 245a c".
    std::string Rows() {
        const QAbstractItemModel& model = Table().Model();
        QStringList rows;
        for (int row = 1; row < model.rowCount(); ++row) {
            rows << model.index(row, RecordModel::Tag).data().toString() +
                        model.index(row, RecordModel::Code).data().toString().remove(u'$');
        }
        return rows.join(u' ').toStdString();
    }
    QString carried_;
    bool isTaken_ = false;

    void Undo() { Press(Qt::Key_Z, Qt::ControlModifier); }
};

constexpr const char* kAsItWas = "001 008 100a 245a c";

TEST_F(DragTest, AFieldIsTakenByItsTagAndItsBytesGoAlong) {
    ASSERT_EQ(Rows(), kAsItWas);
    Drag(At("245", RecordModel::Tag), Above("100 $a"));
    EXPECT_EQ(Rows(), "001 008 245a c 100a");
    EXPECT_EQ(Table().CurrentPlace().Tag(), "245");
    ASSERT_TRUE(window_->Save());
    EXPECT_NE(file_->Read().find("\03610\037aRivers /\037cJane Doe.\0361 \037aDoe, Jane.\036\035"),
              std::string::npos)
        << file_->Read();
    Undo();
    EXPECT_EQ(Rows(), kAsItWas) << "one step";
}

TEST_F(DragTest, ARowGoesWhereItIsDropped) {
    struct Case {
        const char* what;
        QPoint from;
        QPoint to;
        const char* rows;
    };
    const Case cases[] = {
        {"within its field", At("245 $c"), Above("245 $a"), "001 008 100a 245c a"},
        {"below its field", At("245 $a"), Below("245 $c"), "001 008 100a 245c a"},
        {"out of its field, with all of it", At("245 $c"), Below("008"), "001 008 245a c 100a"},
        {"before all others, not before the leader", At("100 $a"), At("leader"),
         "100a 001 008 245a c"},
        {"to the end of the nearer side", At("008"), Below("245 $c"), "001 100a 245a c 008"},
        {"into another field: before it", At("008"), Below("245 $a") - QPoint(0, 3),
         "001 100a 008 245a c"},
        {"below all rows", At("001"), QPoint(60, Table().viewport()->height() - 20),
         "008 100a 245a c 001"},
        {"where it is", At("008"), Below("008"), kAsItWas},
        {"the leader stays", At("leader"), Below("245 $c"), kAsItWas},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        Drag(one.from, one.to);
        EXPECT_EQ(Rows(), one.rows);
        if (one.rows != std::string(kAsItWas)) Undo();
        EXPECT_EQ(Rows(), kAsItWas);
    }
    EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(DragTest, WithCtrlAFieldIsCopied) {
    Drag(At("100", RecordModel::Tag), Below("245 $c"), Qt::ControlModifier);
    EXPECT_EQ(Rows(), "001 008 100a 245a c 100a");
    EXPECT_EQ(Cell("100[2] $a"), "Doe, Jane.");
}

TEST_F(DragTest, WhatIsBeingTypedIsTakenFirst) {
    MarcEdit& box = Edit("245 $c");
    Type(box, QString::fromUtf8("\u2021hx"));
    Drag(At("100", RecordModel::Tag), QPoint(60, Table().viewport()->height() - 20));
    EXPECT_EQ(OpenBox<MarcEdit>(), nullptr);
    EXPECT_EQ(Rows(), "001 008 245a c h 100a");
    EXPECT_EQ(Cell("245 $h"), "x");
}

TEST_F(DragTest, FieldsOfAnotherWindowAreCopied) {
    Edit("245 $c");
    Type(*OpenBox<MarcEdit>(), "x");
    EXPECT_TRUE(Drop("=500  \\\\$aA note.\n=520  \\\\$aWhat it is.\n", Below("245 $c")));
    EXPECT_EQ(Rows(), "001 008 100a 245a c 500a 520a");
    EXPECT_EQ(Cell("245 $c"), "Jane Doe.x");
    EXPECT_EQ(Cell("500 $a"), "A note.");
    Undo();
    EXPECT_EQ(Cell("245 $c"), "Jane Doe.x");
    EXPECT_EQ(Rows(), kAsItWas);
    EXPECT_FALSE(Drop("Just words", Below("245 $c")));
    EXPECT_FALSE(Drop("=24", Below("245 $c")));
    EXPECT_EQ(Rows(), kAsItWas);
}

TEST_F(DragTest, ARecordThatIsReadOnlyTakesNothingAndIsCopiedFrom) {
    const auto first = std::move(window_);
    window_ = NewWindow();
    ASSERT_TRUE(window_->Open(Path()));
    Wait();
    Drag(At("245", RecordModel::Tag), Above("100 $a"));
    EXPECT_FALSE(isTaken_);
    EXPECT_EQ(carried_, "=245  10$aRivers /$cJane Doe.\n");
    EXPECT_FALSE(Drop("=500  \\\\$aA note.", Below("245 $c")));
    EXPECT_EQ(Rows(), kAsItWas);
}

}  // namespace
}  // namespace quillory
