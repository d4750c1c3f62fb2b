#pragma once

#include <quillory/rules/Rule.h>

#include <QColor>
#include <QString>
#include <string_view>

class QPlainTextEdit;

namespace quillory {

inline QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// All signs of a box as they stand there; its own function gives blanks for no-break spaces.
QString TextIn(const QPlainTextEdit& box);

// A severity as a sign, in words, and in a colour that can be read on this ground.
QString SignOf(Severity severity);
QString WordOf(Severity severity);
QColor ColorOf(Severity severity, const QColor& ground);

}  // namespace quillory
