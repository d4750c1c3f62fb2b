#pragma once

#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QTimer;

namespace quillory {

class OpenRecord;

// The record as lines, "=245  10$aTitle", for those who type fast. What is typed becomes the record
// a moment later; a text that can't be read is told of, and the record waits for it.
class LinesEditor : public QWidget {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit LinesEditor(OpenRecord& record, QWidget* parent = nullptr);

    // Takes what has been typed. False if it can't be read.
    bool Finish();
    // Takes it if it can be read, without a word.
    void TellTyped();
    // Whether something has been typed that the record does not know of; its last step is taken
    // back, and can be brought back as long as the record does not change.
    bool IsAhead() const { return isTyped_; }
    bool CanBringBack() const;
    void TakeBack();
    void BringBack();
    void SetActive(bool isActive);
    // The box in which a person types.
    QPlainTextEdit& Box() { return *box_; }

Q_SIGNALS:
    void Typed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowRecord();
    void ShowFault(const QString& text);

    OpenRecord& record_;
    QPlainTextEdit* box_;
    QLabel* fault_;
    QTimer* pause_;
    bool isActive_ = false;
    QString known_;          // the text that the record knows of
    bool isTyped_ = false;   // the text is ahead of the record
    bool isTaking_ = false;  // the change of the record comes from here
};

}  // namespace quillory
