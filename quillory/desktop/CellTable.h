#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <QTableView>

namespace quillory {

// The boxes in which a person types into the cells of a table, one at a time.
class CellBoxes : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The box that is open; null if none is.
    QWidget* Box() const { return box_; }
    // Takes what is in the open box, and closes it.
    void Finish();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

protected:
    virtual QWidget* MakeBox(QWidget* parent, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const;

private:
    mutable QPointer<QWidget> box_;
    bool isTaking_ = false;
};

// A table whose cells are typed in. A box can go away with its row in the step that takes what is
// in it; then nothing is left to take or to close.
class CellTable : public QTableView {
    Q_OBJECT

public:
    // The table keeps the boxes.
    CellTable(CellBoxes* boxes, QWidget* parent);

    QWidget* Box() const { return boxes_->Box(); }
    void Finish() { boxes_->Finish(); }
    // Opens the box of a cell that can be changed. Where a click is about to open the box of the
    // current cell, that is left to the click.
    void Open(const QModelIndex& index);

protected:
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    CellBoxes* boxes_;
};

}  // namespace quillory
