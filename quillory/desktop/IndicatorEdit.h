#pragma once

#include <quillory/desktop/QtControls.h>
#include <zorby/selection/IndicatorSelect.h>

#include <QFrame>
#include <string>

class QListWidget;

namespace quillory {

// The values of an indicator with what they mean, one of which is chosen by its key, by the arrow
// keys or by the mouse. The library's control says which there are.
class IndicatorEdit : public QFrame {
    Q_OBJECT

public:
    // `which` is 1 or 2. `source` is the text of the field's $2, which tells what a 7 means.
    IndicatorEdit(unsigned tag, int which, std::string source, QWidget* parent = nullptr);

    // "#" is a blank. A value that can't be one is empty.
    void SetValue(const QString& value);
    QString Value() const;
    QListWidget& List() { return *list_; }
    QSize sizeHint() const override;

Q_SIGNALS:
    // A value is chosen by the mouse.
    void Chosen();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TypeKey(const QString& typed);
    void FitList();

    const unsigned tag_;
    const int which_;
    const std::string source_;
    zorby::CIndicatorSelect select_;
    QtControls controls_{*this, select_};
    QListWidget* list_;
};

}  // namespace quillory
