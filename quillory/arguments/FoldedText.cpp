#include <quillory/arguments/FoldedText.h>

#include <algorithm>

namespace quillory {
namespace {

// Takes what stands before the next separator off the text, and the separator.
std::string_view TakeUpTo(char separator, std::string_view& text) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

}  // namespace

std::string Folded(std::string_view text, std::size_t columns) {
    std::string folded;
    std::size_t column = 0;
    while (!text.empty()) {
        const std::string_view word = TakeUpTo(' ', text);
        if (column > 0) {
            const bool fits = column + 1 + word.size() <= columns;
            folded += fits ? ' ' : '\n';
            column = fits ? column + 1 : 0;
        }
        folded += word;
        column += word.size();
    }
    return folded;
}

std::vector<std::string> Paragraphs(std::string_view text) {
    std::vector<std::string> paragraphs;
    bool goesOn = false;
    while (!text.empty()) {
        const std::string_view line = TakeUpTo('\n', text);
        if (line.empty()) continue;
        const bool isTable = line.starts_with(' ');
        if (goesOn && !isTable) {
            paragraphs.back().append(" ").append(line);
        } else {
            paragraphs.emplace_back(line);
        }
        goesOn = !isTable && !line.ends_with('.');
    }
    return paragraphs;
}

}  // namespace quillory
