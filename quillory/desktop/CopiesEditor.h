#pragma once

#include <quillory/edits/RecordCopies.h>

#include <QWidget>

class QComboBox;
class QLabel;
class QModelIndex;
class QPushButton;

namespace quillory {

class CellTable;
class CopiesModel;
class OpenRecord;

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
    CellTable& Table() { return *table_; }
    QComboBox& Systems() { return *systems_; }

Q_SIGNALS:
    void Counted();
    void SystemChosen();
    void PlaceChanged();
    void Said(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

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

    OpenRecord& record_;
    CopiesModel* model_;
    CellTable* table_;
    QComboBox* systems_;
    QLabel* none_;
    QPushButton* new_;
    QPushButton* like_;
    QPushButton* remove_;
    QPushButton* barCode_;
};

}  // namespace quillory
