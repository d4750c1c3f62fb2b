#include <quillory/cards/Punctuation.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kLeadingOn = ",:;/=+";  // marks after which something has to come

// What ISBD sets before a subfield, where the fields hold no punctuation.
struct Mark {
    std::string_view tags;  // with blanks between
    char code;
    std::string_view mark;
};
constexpr Mark kMarks[] = {
    {"245", 'b', " :"},
    {"245", 'c', " /"},
    {"245", 'n', "."},
    {"245", 'p', "."},
    {"245", 'f', ","},
    {"245", 'g', ","},
    {"250", 'b', " /"},
    {"260 264", 'a', " ;"},
    {"260 264", 'b', " :"},
    {"260 264", 'c', ","},
    {"300", 'b', " :"},
    {"300", 'c', " ;"},
    {"300", 'e', " +"},
    {"440 490 8XX", 'v', " ;"},
    {"440 490", 'x', ","},
    {"440 490 830", 'n', "."},
    {"440 490 830", 'p', "."},
    {"100 600 700 800", 'd', ","},
    {"100 600 700 800", 'c', ","},
};

bool Concerns(const Mark& mark, const CardField& field) {
    const bool isSeries = field.tag.starts_with('8') && mark.tags.find("8XX") != mark.tags.npos;
    return isSeries || mark.tags.find(field.tag) != mark.tags.npos;
}

std::string_view MarkBefore(const CardField& field, char code) {
    const auto* const row = std::ranges::find_if(
        kMarks, [&](const Mark& mark) { return mark.code == code && Concerns(mark, field); });
    return row == std::end(kMarks) ? std::string_view() : row->mark;
}

bool EndsInAnyOf(std::string_view text, std::string_view marks) {
    return !text.empty() && marks.find(text.back()) != marks.npos;
}

void AddMark(std::string_view mark, std::string& text) {
    if (mark.empty() || EndsInAnyOf(text, kLeadingOn)) return;
    if (mark.front() == '.' && EndsInAnyOf(text, ".")) return;
    text += mark;
}

}  // namespace

std::string Joined(const CardField& field, std::string_view without, bool hasPunctuation) {
    std::string text;
    for (const auto& [code, part] : field.subfields) {
        if (without.find(code) != without.npos) continue;
        if (!text.empty()) {
            if (!hasPunctuation) AddMark(MarkBefore(field, code), text);
            text += ' ';
        }
        text += part;
    }
    return text;
}

std::string WithoutLastMark(std::string text) {
    while (EndsInAnyOf(text, " ,:;/=+")) text.pop_back();
    return text;
}

std::string WithFullStop(std::string text) {
    text = WithoutLastMark(std::move(text));
    if (!text.empty() && !EndsInAnyOf(text, ".?!)]-\"'>")) text += '.';
    return text;
}

void AddArea(std::string area, std::string& paragraph) {
    area = WithoutLastMark(std::move(area));
    if (area.empty()) return;
    if (!paragraph.empty()) paragraph += paragraph.ends_with('.') ? " \u2014 " : ". \u2014 ";
    paragraph += area;
}

}  // namespace quillory
