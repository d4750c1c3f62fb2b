#include <quillory/places/Place.h>
#include <quillory/rules/Words.h>

#include <sstream>
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

// "a, b or c".
std::string Alternatives(const std::vector<std::string>& texts) {
    std::string list;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) list += i + 1 == texts.size() ? " or " : ", ";
        list += texts[i];
    }
    return list;
}

}  // namespace

std::string Shown(std::string_view value) {
    if (value.empty()) return "empty";
    if (value.find_first_not_of(' ') == value.npos) return "blank";
    return '"' + Printable(value) + '"';
}

std::string ValuesText(const Codes& values) {
    return Alternatives(RangesOf(values));
}

std::string SuccessorText(std::string_view codes) {
    std::vector<std::string> list;
    std::istringstream rest{std::string(codes)};
    for (std::string code; rest >> code;) list.push_back(code);
    return "the code is " + Alternatives(list) + " now";
}

}  // namespace quillory
