#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/Texts.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace quillory {

HoldBar::HoldBar(QWidget* parent)
    : QFrame(parent),
      label_(new QLabel(this)),
      take_(new QPushButton(tr("&Take It Over"), this)),
      copy_(new QPushButton(tr("Save &As…"), this)) {
    setFrameShape(StyledPanel);
    label_->setWordWrap(true);
    label_->setTextFormat(Qt::PlainText);
    label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label_->setAccessibleName(tr("Who has it open"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(label_, 1);
    layout->addWidget(take_);
    layout->addWidget(copy_);
    connect(take_, &QPushButton::clicked, this, &HoldBar::TakeAsked);
    connect(copy_, &QPushButton::clicked, this, &HoldBar::CopyAsked);
    hide();
}

void HoldBar::ShowHeld(const QString& text) {
    Show(text, Severity::Warning);
    take_->setEnabled(false);
}

void HoldBar::ShowFree(const QString& text) {
    Show(text, Severity::Note);
    take_->setEnabled(true);
}

void HoldBar::ShowPart(const QString& text) {
    Show(text, Severity::Warning, false);
}

QString HoldBar::Text() const {
    return isHidden() ? QString() : label_->text();
}

void HoldBar::Show(const QString& text, Severity severity, bool hasButtons) {
    QPalette colors = label_->palette();
    colors.setColor(QPalette::WindowText, ColorOf(severity, palette().color(QPalette::Window)));
    label_->setPalette(colors);
    label_->setText(SignOf(severity) + u' ' + text);
    take_->setVisible(hasButtons);
    copy_->setVisible(hasButtons);
    show();
}

}  // namespace quillory
