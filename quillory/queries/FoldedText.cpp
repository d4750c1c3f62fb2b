#include <quillory/queries/FoldedText.h>
#include <quillory/text/SearchText.h>
#include <quillory/text/Utf8.h>

namespace quillory {
namespace {

// A letter with its diacritics, at the front of a text.
std::size_t SizeOfLetter(std::string_view text) {
    std::size_t size = DecodeUtf8(text).size;
    while (size < text.size()) {
        const Utf8Char next = DecodeUtf8(text.substr(size));
        if (!next.valid || !IsCombining(next.codePoint)) break;
        size += next.size;
    }
    return size;
}

}  // namespace

FoldedText::FoldedText(std::string_view utf8) {
    std::size_t at = 0;
    while (at < utf8.size()) {
        const std::size_t size = SizeOfLetter(utf8.substr(at));
        const std::string letter = Folded(utf8.substr(at, size));
        text += letter;
        origins.insert(origins.end(), letter.size(), at);
        at += size;
    }
    origins.push_back(utf8.size());
}

}  // namespace quillory
