#include <quillory/coded/IsbdMarks.h>
#include <quillory/places/Tag.h>

#include <vector>

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

using MarksOfTag = std::vector<const IsbdMark*>;

std::vector<MarksOfTag> MarksByTag() {
    std::vector<MarksOfTag> marks(kTags + 1);
    for (const IsbdMark& mark : kMarks) {
        for (std::size_t at = 0; at < mark.tags.size(); at += kTagSize + 1) {
            marks[TagNumber(mark.tags.substr(at, kTagSize))].push_back(&mark);
        }
    }
    return marks;
}

const MarksOfTag& MarksOf(unsigned tag) {
    static const std::vector<MarksOfTag> marks = MarksByTag();
    return marks[tag];
}

}  // namespace

bool HasIsbdMarks(unsigned tag) {
    return !MarksOf(tag).empty();
}

const IsbdMark* IsbdMarkBetween(unsigned tag, char code, char next) {
    for (const IsbdMark* mark : MarksOf(tag)) {
        if (mark->before == next && mark->after.find(code) != mark->after.npos) return mark;
    }
    return nullptr;
}

const IsbdMark* IsbdMarkBetween(std::string_view tag, char code, char next) {
    return IsbdMarkBetween(TagNumber(tag), code, next);
}

bool EndsWithMark(std::string_view text, const IsbdMark& mark) {
    if (text.empty()) return false;
    return text.ends_with(mark.mark) || mark.others.find(text.back()) != mark.others.npos;
}

}  // namespace quillory
