#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/Texts.h>

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace quillory {

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent),
      label_(new QLabel(this)),
      lines_(new QLabel(this)),
      action_(new QPushButton(this)) {
    setFrameShape(StyledPanel);
    for (QLabel* label : {label_, lines_}) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    label_->setWordWrap(true);
    label_->setAccessibleName(tr("Message"));
    lines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lines_->setMinimumWidth(1);  // a long line does not widen the window
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(label_);
    texts->addWidget(lines_);
    action_->setFocusPolicy(Qt::TabFocus);
    auto* close = new QToolButton(this);
    close->setText(QStringLiteral("×"));
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close the message"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addLayout(texts, 1);
    layout->addWidget(action_);
    layout->addWidget(close, 0, Qt::AlignTop);
    connect(action_, &QPushButton::clicked, this, &MessageBar::ActionAsked);
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    hide();
}

void MessageBar::Say(const QString& text) {
    Show(text, palette().color(QPalette::WindowText));
}

void MessageBar::Warn(const QString& text) {
    Show(SignOf(Severity::Error) + u' ' + text,
         ColorOf(Severity::Error, palette().color(QPalette::Window)));
}

void MessageBar::Offer(const QString& text, const QString& action) {
    Say(text);
    action_->setText(action);
    action_->show();
}

// Lines that are set in show a place in what was typed, by carets under it.
void MessageBar::Show(const QString& text, const QColor& color) {
    const qsizetype end = text.indexOf(QStringLiteral("\n    "));
    const QString lines = end < 0 ? QString() : text.mid(end + 1);
    label_->setText(text.left(end));
    lines_->setText(lines);
    lines_->setVisible(!lines.isEmpty());
    for (QLabel* label : {label_, lines_}) {
        QPalette colors = label->palette();
        colors.setColor(QPalette::WindowText, color);
        label->setPalette(colors);
    }
    text_ = text;
    action_->hide();
    show();
}

}  // namespace quillory
