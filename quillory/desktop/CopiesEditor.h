#pragma once

#include <quillory/edits/RecordCopies.h>

#include <QStyledItemDelegate>
#include <QWidget>

class QComboBox;
class QLabel;
class QModelIndex;
class QPushButton;
class QTableView;

namespace quillory {

class CopiesModel;
class OpenRecord;

// The lines in which a person types what is known of a copy.
class CopyCell : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool eventFilter(QObject* editor, QEvent* event) override;
};

// The copies of the record in hand, a row each.
class CopiesEditor : public QWidget {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit CopiesEditor(OpenRecord& record, QWidget* parent = nullptr);

    int Count() const;
    // Null if no element is in hand.
    const CopyElement* CurrentElement() const;
    // What is being typed becomes a part of the record.
    void Finish();
    void TellTyped();

    // A copy with the next bar code, if the settings have one; the cursor goes to where it stands.
    void New();
    void NewLikeThis();
    void Remove();
    void TakeBarCode();
    void TakeFocus();
    QTableView& Table() { return *table_; }
    QComboBox& Systems() { return *systems_; }

Q_SIGNALS:
    void Counted();
    void PlaceChanged();
    void Said(const QString& text);

private:
    QPushButton* Button(const QString& text, const QString& tip, void (CopiesEditor::*work)());
    void MakeTable();
    void MakeSystems();
    void ChooseSystem(const QString& name);
    void FitColumns();
    void Add(bool isLikeThis);
    QString NextBarCode();
    void GoToBarCode(int row);
    void ShowState();
    QWidget* Box() const;

    OpenRecord& record_;
    CopiesModel* model_;
    QTableView* table_;
    QComboBox* systems_;
    QLabel* none_;
    QPushButton* new_;
    QPushButton* like_;
    QPushButton* remove_;
    QPushButton* barCode_;
};

}  // namespace quillory
