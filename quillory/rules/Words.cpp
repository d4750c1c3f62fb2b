#include <quillory/places/Place.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Visible.h>

#include <sstream>
#include <vector>

namespace quillory {
namespace {

std::string ValueText(unsigned char value) {
    const char c = static_cast<char>(value);
    return c == ' ' ? "blank" : Printable({&c, 1});
}

// Values that follow each other. A blank goes with no other.
struct Run {
    unsigned char first;
    unsigned char last;
};

std::vector<Run> RunsOf(const ByteSet& values) {
    std::vector<Run> runs;
    values.ForEach([&runs](unsigned char value) {
        const bool goesOn =
            !runs.empty() && runs.back().last + 1 == value && runs.back().last != ' ';
        if (goesOn) {
            runs.back().last = value;
        } else {
            runs.push_back({value, value});
        }
    });
    return runs;
}

// Three values or more in a row are told by the first and the last.
std::vector<std::string> RangesOf(const ByteSet& values) {
    const std::vector<Run> runs = RunsOf(values);
    std::vector<std::string> ranges;
    ranges.reserve(runs.size());
    for (const auto& [first, last] : runs) {
        if (last > first + 1) {
            ranges.push_back(ValueText(first) + " to " + ValueText(last));
        } else {
            ranges.push_back(ValueText(first));
            if (last != first) ranges.push_back(ValueText(last));
        }
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
    return '"' + Visible(value) + '"';
}

std::string ValuesText(const ByteSet& values) {
    return Alternatives(RangesOf(values));
}

std::string SuccessorText(std::string_view codes) {
    std::vector<std::string> list;
    std::istringstream rest{std::string(codes)};
    for (std::string code; rest >> code;) list.push_back(code);
    return "the code is " + Alternatives(list) + " now";
}

}  // namespace quillory
