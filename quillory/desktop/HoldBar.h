#pragma once

#include <quillory/rules/Rule.h>

#include <QFrame>

class QLabel;
class QPushButton;

namespace quillory {

// A line above the work that says who else has what is shown, and what can be done. It stays as
// long as that is so.
class HoldBar : public QFrame {
    Q_OBJECT

public:
    explicit HoldBar(QWidget* parent = nullptr);

    // Another window has it.
    void ShowHeld(const QString& text);
    // It did, and does not any more.
    void ShowFree(const QString& text);
    // Another window has a part of it, and a person can only wait.
    void ShowPart(const QString& text);
    QString Text() const;
    QPushButton& TakeButton() { return *take_; }
    QPushButton& CopyButton() { return *copy_; }

Q_SIGNALS:
    void TakeAsked();
    void CopyAsked();

private:
    void Show(const QString& text, Severity severity, bool hasButtons = true);

    QLabel* label_;
    QPushButton* take_;
    QPushButton* copy_;
};

}  // namespace quillory
