#include <quillory/queries/FoldedText.h>
#include <quillory/text/Letters.h>
#include <quillory/text/SearchText.h>

namespace quillory {

FoldedText::FoldedText(std::string_view utf8) {
    std::size_t at = 0;
    while (at < utf8.size()) {
        const std::size_t size = LetterSize(utf8.substr(at));
        const std::string letter = Folded(utf8.substr(at, size));
        text += letter;
        origins.insert(origins.end(), letter.size(), at);
        at += size;
    }
    origins.push_back(utf8.size());
}

}  // namespace quillory
