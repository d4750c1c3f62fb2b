#include <quillory/coded/IsbdMarks.h>
#include <quillory/places/Tag.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace quillory {
namespace {

constexpr std::string_view kPersons = "100 600 700 800";
constexpr std::string_view kBodies = "110 610 710 810";
constexpr std::string_view kAfterTitle = "?!,;=-:\"";

constexpr IsbdMark kMarks[] = {
    {"245", "abchnp", 'b', " :", "=;"},
    {"245", "abhnpfgks", 'c', " /", ""},
    {"245", "abnph", 'n', ".", kAfterTitle},
    {"245", "abnph", 'p', ".", kAfterTitle},
    {"245", "abchnp", 'f', ",", ""},
    {"245", "abchnpf", 'g', ",", ""},
    {"250", "a", 'b', " /", "=,"},
    {"260 264", "a", 'a', " ;", ""},
    {"260 264", "ab", 'b', " :", ""},
    {"260 264", "ab", 'c', ",", ""},
    {"300", "a", 'b', " :", ""},
    {"300", "ab", 'c', " ;", ""},
    {"300", "abc", 'e', " +", ""},
    {"440 490 800 810 811 830", "anptx", 'v', " ;", ","},
    {"440 490", "anp", 'x', ",", ""},
    {"440 490 830", "anp", 'n', ".", kAfterTitle},
    {"440 490 830", "anp", 'p', ".", kAfterTitle},
    {kPersons, "ab", 'c', ",", "", true},
    {kPersons, "abc", 'd', ",", "", true},
    {kPersons, "qabcd", 'e', ",", "-", true},
    {kPersons, "abcdeq", 't', ".", "?!-)", true},
    {kBodies, "ab", 'b', ".", "?!-)", true},
    {kBodies, "abdnc", 'e', ",", "-.", true},
    {kBodies, "abdnc", 't', ".", "?!-)", true},
};

// Where the marks of a tag stand in the table, from 1; then zeros.
using MarksOfTag = std::array<std::uint8_t, 8>;

constexpr auto kMarksOfTags = [] {
    std::array<MarksOfTag, kTags + 1> marks{};
    for (std::size_t i = 0; i < std::size(kMarks); ++i) {
        const std::string_view tags = kMarks[i].tags;
        for (std::size_t at = 0; at < tags.size(); at += kTagSize + 1) {
            MarksOfTag& ofTag = marks[TagNumber(tags.substr(at, kTagSize))];
            *std::ranges::find(ofTag, 0) = static_cast<std::uint8_t>(i + 1);
        }
    }
    return marks;
}();

// For texts of a few characters.
bool IsAmong(char c, std::string_view characters) {
    return std::ranges::find(characters, c) != characters.end();
}

}  // namespace

bool HasIsbdMarks(unsigned tag) {
    return kMarksOfTags[tag].front() != 0;
}

const IsbdMark* IsbdMarkBetween(unsigned tag, char code, char next) {
    for (const std::size_t number : kMarksOfTags[tag]) {
        if (number == 0) break;
        const IsbdMark& mark = kMarks[number - 1];
        if (mark.before == next && IsAmong(code, mark.after)) return &mark;
    }
    return nullptr;
}

const IsbdMark* IsbdMarkBetween(std::string_view tag, char code, char next) {
    return IsbdMarkBetween(TagNumber(tag), code, next);
}

bool EndsWithMark(std::string_view text, const IsbdMark& mark) {
    if (text.empty()) return false;
    const char last = text.back();
    const bool hasMark = last == mark.mark.back() && text.ends_with(mark.mark);
    return hasMark || IsAmong(last, mark.others);
}

}  // namespace quillory
