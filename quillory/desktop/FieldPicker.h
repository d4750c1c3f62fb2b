#pragma once

#include <zorby/format/DisplayOptions.h>

#include <QDialog>
#include <string>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace quillory {

class FieldTree;

// A field to add, by its tag, by words of its name or by its group.
class FieldPicker : public QDialog {
    Q_OBJECT

public:
    explicit FieldPicker(QWidget* parent = nullptr);

    // "245"; empty if nothing was picked.
    std::string Tag() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeNames();
    void ShowMatches(const QString& typed);
    void UpdateButton();

    QTabWidget* tabs_;
    QLineEdit* box_;
    QListWidget* list_;
    FieldTree* tree_;
    QPushButton* add_;
};

}  // namespace quillory
