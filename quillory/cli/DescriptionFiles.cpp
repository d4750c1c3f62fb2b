#include <quillory/cli/DescriptionFiles.h>

namespace quillory {

std::string ReadDescriptionFile(const std::string& path) {
    Input input(path);
    std::string text;
    for (;;) {
        const std::string_view window = input.Peek(1);
        if (window.empty()) break;
        text += window;
        input.Skip(window.size());
    }
    if (text.empty()) throw FileError(path + ": an empty file");
    return text;
}

}  // namespace quillory
