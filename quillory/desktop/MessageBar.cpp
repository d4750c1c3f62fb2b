#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/Texts.h>

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace quillory {

namespace {

// Lines that are set in show a place in what was typed, by carets under it: their characters have
// one width.
QString Page(const QString& text) {
    const qsizetype setIn = text.indexOf(QStringLiteral("\n    "));
    const QString words = setIn < 0 ? text : text.left(setIn);
    QString page =
        QStringLiteral("<div style='white-space: pre-wrap'>%1</div>").arg(words.toHtmlEscaped());
    if (setIn >= 0) {
        page += QStringLiteral("<div style='white-space: pre-wrap; font-family: \"%1\"'>%2</div>")
                    .arg(QFontDatabase::systemFont(QFontDatabase::FixedFont).family(),
                         text.mid(setIn + 1).toHtmlEscaped());
    }
    return page;
}

}  // namespace

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent), label_(new QLabel(this)), action_(new QPushButton(this)) {
    setFrameShape(StyledPanel);
    label_->setWordWrap(true);
    label_->setTextFormat(Qt::RichText);
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

void MessageBar::Show(const QString& text, const QColor& color) {
    QPalette colors = label_->palette();
    colors.setColor(QPalette::WindowText, color);
    label_->setPalette(colors);
    label_->setText(Page(text));
    text_ = text;
    action_->hide();
    show();
}

}  // namespace quillory
