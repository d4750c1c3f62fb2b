#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace quillory {

// The boxes in which a person types into the cells of a record: a line for tags, indicators and
// codes, a box that grows for text.
class CellEditor : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The box that is open; null if none is.
    QWidget* Box() const { return box_; }
    // Takes what is in the open box, and closes it.
    void Finish();
    // Puts a delimiter at the caret of the open box of a text. False if there is none.
    bool TypeDelimiter();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    mutable QPointer<QWidget> box_;
};

}  // namespace quillory
