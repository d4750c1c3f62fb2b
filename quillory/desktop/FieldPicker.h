#pragma once

#include <zorby/format/DisplayOptions.h>

#include <QDialog>
#include <string>

class QLineEdit;
class QListWidget;

namespace quillory {

// A field to add, by its tag or by words of its name.
class FieldPicker : public QDialog {
    Q_OBJECT

public:
    explicit FieldPicker(QWidget* parent = nullptr);

    // "245"; empty if nothing was picked.
    std::string Tag() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowMatches(const QString& typed);

    QLineEdit* box_;
    QListWidget* list_;
};

}  // namespace quillory
