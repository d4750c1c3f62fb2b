#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace quillory {

// A line above the work that says what went wrong, or was done, until it is closed. It never takes
// the keyboard.
class MessageBar : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    void Say(const QString& text);
    void Warn(const QString& text);
    // With a button for what can be done about it.
    void Offer(const QString& text, const QString& action);
    QString Text() const { return isHidden() ? QString() : text_; }
    QPushButton& ActionButton() { return *action_; }

Q_SIGNALS:
    void ActionAsked();

private:
    void Show(const QString& text, const QColor& color);

    QLabel* label_;
    QLabel* lines_;  // below it, whose characters have one width
    QPushButton* action_;
    QString text_;
};

}  // namespace quillory
