#pragma once

#include <QFrame>

class QLabel;

namespace quillory {

// A line above the work that says what went wrong, or was done, until it is closed. It never takes
// the keyboard.
class MessageBar : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    void Say(const QString& text);
    void Warn(const QString& text);
    QString Text() const;

private:
    void Show(const QString& text, const QColor& color);

    QLabel* label_;
};

}  // namespace quillory
