#include <quillory/coded/IsbdMarks.h>

#include <algorithm>

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

}  // namespace

const IsbdMark* IsbdMarkBetween(std::string_view tag, char code, char next) {
    const auto* found = std::ranges::find_if(kMarks, [=](const IsbdMark& mark) {
        return mark.before == next && mark.tags.find(tag) != mark.tags.npos &&
               mark.after.find(code) != mark.after.npos;
    });
    return found == std::end(kMarks) ? nullptr : found;
}

bool EndsWithMark(std::string_view text, const IsbdMark& mark) {
    if (text.empty()) return false;
    return text.ends_with(mark.mark) || mark.others.find(text.back()) != mark.others.npos;
}

}  // namespace quillory
