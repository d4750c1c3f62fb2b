#include <quillory/text/JsonWords.h>

namespace quillory {

std::string JsonWords(std::string_view what) {
    constexpr std::string_view kBehindNumbers = ": ";
    const std::size_t start = what.find(kBehindNumbers);
    if (start == what.npos) return "a number out of range";
    what.remove_prefix(start + kBehindNumbers.size());
    return std::string(what.substr(0, what.find("; last read: ")));
}

}  // namespace quillory
