#include <quillory/cards/Punctuation.h>
#include <quillory/coded/IsbdMarks.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kLeadingOn = ",:;/=+";  // marks after which something has to come

// Marks after which there is no full stop; hyphens of open dates, and full stops, of other scripts.
constexpr std::string_view kClosing[] = {
    ".",      "?",      "!",      ")",      "]",      "-",      "\"",
    "'",      ">",      "\u05BE", "\u2013", "\u2019", "\u201D", "\u00BB",
    "\u3002", "\u061F", "\u06D4", "\uFF01", "\uFF1F",
};

bool EndsInAnyOf(std::string_view text, std::string_view marks) {
    return !text.empty() && marks.find(text.back()) != marks.npos;
}

void AddMark(const IsbdMark& mark, std::string& text) {
    if (EndsInAnyOf(text, kLeadingOn)) return;
    if (mark.mark == "." && EndsInAnyOf(text, ".")) return;
    text += mark.mark;
}

}  // namespace

std::string Joined(const CardField& field, std::string_view without, bool hasPunctuation) {
    std::string text;
    char last = '\0';
    for (const auto& [code, part] : field.subfields) {
        if (without.find(code) != without.npos) continue;
        if (!text.empty()) {
            const IsbdMark* mark =
                hasPunctuation ? nullptr : IsbdMarkBetween(field.tag, last, code);
            if (mark != nullptr) AddMark(*mark, text);
            text += ' ';
        }
        text += part;
        last = code;
    }
    return text;
}

std::string WithoutLastMark(std::string text) {
    while (EndsInAnyOf(text, " ,:;/=+")) text.pop_back();
    return text;
}

std::string WithFullStop(std::string text) {
    text = WithoutLastMark(std::move(text));
    const auto isAtEnd = [&text](std::string_view mark) { return text.ends_with(mark); };
    if (!text.empty() && std::ranges::none_of(kClosing, isAtEnd)) text += '.';
    return text;
}

void AddArea(std::string area, std::string& paragraph) {
    area = WithoutLastMark(std::move(area));
    if (area.empty()) return;
    if (!paragraph.empty()) paragraph += paragraph.ends_with('.') ? " \u2014 " : ". \u2014 ";
    paragraph += area;
}

}  // namespace quillory
