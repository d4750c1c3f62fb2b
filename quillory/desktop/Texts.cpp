#include <quillory/desktop/Texts.h>

#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace quillory {
namespace {

constexpr int kDarkBelow = 128;  // lightness

}  // namespace

QString TextIn(const QPlainTextEdit& box) {
    return box.document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

QString SignOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return QStringLiteral("✖");
        case Severity::Warning:
            return QStringLiteral("▲");
        case Severity::Note:
            break;
    }
    return QStringLiteral("ℹ");
}

QString WordOf(Severity severity) {
    const auto word = [](const char* text) {
        return QCoreApplication::translate("Severity", text);
    };
    switch (severity) {
        case Severity::Error:
            return word("error");
        case Severity::Warning:
            return word("warning");
        case Severity::Note:
            break;
    }
    return word("note");
}

QColor ColorOf(Severity severity, const QColor& ground) {
    const bool isDark = ground.lightness() < kDarkBelow;
    switch (severity) {
        case Severity::Error:
            return isDark ? QColor(0xff8a80) : QColor(0xb3261e);
        case Severity::Warning:
            return isDark ? QColor(0xffc266) : QColor(0x8a5300);
        case Severity::Note:
            break;
    }
    return isDark ? QColor(0x8ab4f8) : QColor(0x1a5fb4);
}

}  // namespace quillory
