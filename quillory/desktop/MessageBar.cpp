#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/Texts.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace quillory {

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent), label_(new QLabel(this)), action_(new QPushButton(this)) {
    setFrameShape(StyledPanel);
    label_->setWordWrap(true);
    label_->setTextFormat(Qt::PlainText);
    label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label_->setAccessibleName(tr("Message"));
    action_->setFocusPolicy(Qt::TabFocus);
    auto* close = new QToolButton(this);
    close->setText(QStringLiteral("×"));
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close the message"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(label_, 1);
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

QString MessageBar::Text() const {
    return isHidden() ? QString() : label_->text();
}

void MessageBar::Show(const QString& text, const QColor& color) {
    QPalette colors = label_->palette();
    colors.setColor(QPalette::WindowText, color);
    label_->setPalette(colors);
    label_->setText(text);
    action_->hide();
    show();
}

}  // namespace quillory
