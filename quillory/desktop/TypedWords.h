#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>

namespace quillory {

// Whether a text has all words that a person typed, or parts of them, in any case.
inline bool HasWords(const QString& text, const QString& typed) {
    const QStringList words = typed.split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(
        words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}  // namespace quillory
