#pragma once

#include <quillory/desktop/CellTable.h>
#include <quillory/desktop/MarcPorts.h>

class QPlainTextEdit;

namespace zorby {
class CEditMARCAlpha;
}

namespace quillory {

// The boxes in which a person types into the cells of a record: a line for tags and codes, the
// values of indicators, a box that grows for text.
class CellEditor : public CellBoxes {
    Q_OBJECT

public:
    using CellBoxes::CellBoxes;

    // A widget that can take the focus while a text is typed, which stays open then. Keeps the
    // pointer.
    void SetCompanion(const QWidget* companion);

    // Puts a delimiter at the caret of the open box of a text. False if there is none.
    bool TypeDelimiter();
    // Types a character of the palette into the open box of a subfield. False if there is none.
    bool TypeCharacter(unsigned id);

    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

Q_SIGNALS:
    void Said(const QString& text) const;

protected:
    QWidget* MakeBox(QWidget* parent, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QPlainTextEdit* MakeTextBox(QWidget* parent, const QModelIndex& index) const;
    std::string NextBarCode(const zorby::CEditMARCAlpha& field) const;
    QWidget* MakeIndicatorBox(QWidget* parent, const QModelIndex& index) const;

    bool IsOfCompanion(const QWidget* widget) const;

    MarcPorts ports_;
    QPointer<const QWidget> companion_;
};

}  // namespace quillory
