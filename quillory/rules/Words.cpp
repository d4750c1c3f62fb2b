#include <quillory/places/Place.h>
#include <quillory/rules/Words.h>

#include <vector>

namespace quillory {
namespace {

std::string ValueText(std::size_t value) {
    const char c = static_cast<char>(value);
    return c == ' ' ? "blank" : Printable({&c, 1});
}

// Three values or more in a row are told by the first and the last.
std::vector<std::string> RangesOf(const Codes& values) {
    std::vector<std::string> ranges;
    for (std::size_t value = 0; value < values.size(); ++value) {
        if (!values[value]) continue;
        std::size_t last = value;
        while (value != ' ' && last + 1 < values.size() && values[last + 1]) ++last;
        const bool isRange = last > value + 1;
        ranges.push_back(isRange ? ValueText(value) + " to " + ValueText(last) : ValueText(value));
        if (isRange) value = last;
    }
    return ranges;
}

}  // namespace

std::string Shown(std::string_view value) {
    if (value.empty()) return "empty";
    if (value.find_first_not_of(' ') == value.npos) return "blank";
    return '"' + Printable(value) + '"';
}

std::string ValuesText(const Codes& values) {
    const std::vector<std::string> ranges = RangesOf(values);
    std::string text;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        if (i > 0) text += i + 1 == ranges.size() ? " or " : ", ";
        text += ranges[i];
    }
    return text;
}

}  // namespace quillory
