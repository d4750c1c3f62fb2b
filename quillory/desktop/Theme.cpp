#include <quillory/desktop/Theme.h>

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace quillory {
namespace {

QPalette Dark() {
    QPalette palette(QColor(0x2b2d30));
    palette.setColor(QPalette::Window, QColor(0x2b2d30));
    palette.setColor(QPalette::Base, QColor(0x1e1f22));
    palette.setColor(QPalette::AlternateBase, QColor(0x26282b));
    palette.setColor(QPalette::Button, QColor(0x393b40));
    palette.setColor(QPalette::ToolTipBase, QColor(0x393b40));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, QColor(0xe6e6e6));
        palette.setColor(QPalette::Disabled, role, QColor(0x8a8d93));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0xa8abb2));
    palette.setColor(QPalette::Highlight, QColor(0x2f5d9b));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x8ab4f8));
    return palette;
}

QPalette Light() {
    QPalette palette(QColor(0xf0f0f0));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6f7f9));
    palette.setColor(QPalette::PlaceholderText, QColor(0x5f6368));
    palette.setColor(QPalette::Highlight, QColor(0x2a6fc9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

}  // namespace

void SetTheme(bool isDark) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(isDark ? Dark() : Light());
}

}  // namespace quillory
