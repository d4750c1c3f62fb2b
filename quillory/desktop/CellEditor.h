#pragma once

#include <quillory/desktop/MarcPorts.h>

#include <QPointer>
#include <QStyledItemDelegate>

class QPlainTextEdit;

namespace quillory {

// The boxes in which a person types into the cells of a record: a line for tags and codes, the
// values of indicators, a box that grows for text.
class CellEditor : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit CellEditor(QObject* parent = nullptr);

    // A widget that can take the focus while a text is typed, which stays open then. Keeps the
    // pointer.
    void SetCompanion(const QWidget* companion);

    // The box that is open; null if none is.
    QWidget* Box() const { return box_; }
    // Takes what is in the open box, and closes it.
    void Finish();
    // Puts a delimiter at the caret of the open box of a text. False if there is none.
    bool TypeDelimiter();
    // Types a character of the palette into the open box of a subfield. False if there is none.
    bool TypeCharacter(unsigned id);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    static QPlainTextEdit* MakeTextBox(QWidget* parent, const QModelIndex& index);
    QWidget* MakeIndicatorBox(QWidget* parent, const QModelIndex& index) const;

    bool IsOfCompanion(const QWidget* widget) const;

    MarcPorts ports_;
    QPointer<const QWidget> companion_;
    mutable QPointer<QWidget> box_;
};

}  // namespace quillory
