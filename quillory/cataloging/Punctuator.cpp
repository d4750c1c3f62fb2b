#include <quillory/cataloging/Punctuator.h>
#include <quillory/coded/IsbdMarks.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace quillory {
namespace {

constexpr std::array<std::string_view, 6> kLeadingOn{" :", " ;", " /", " +", " =", ","};
constexpr std::string_view kLeads = ":;/=+,";

// Fields that end in a full stop, unless another mark closes them.
struct FieldEnd {
    std::string_view tags;
    bool afterBrackets;  // also after a closing parenthesis or bracket
};

constexpr auto kEnds = std::to_array<FieldEnd>({
    {"245 250 254 255", true},
    {"260 264", false},
    {"100 110 111 130", false},
    {"600 610 611 630 650 651 655", false},
    {"700 710 711 730 740", false},
    {"800 810 811 830", false},
});

// Sources, links and materials are no part of what is punctuated.
bool IsControlSubfield(const SubfieldText& subfield) {
    return '0' <= subfield.code && subfield.code <= '9';
}

bool EndsInOneOf(std::string_view text, std::string_view marks) {
    return !text.empty() && marks.find(text.back()) != marks.npos;
}

void TakeLeadingMark(std::string& text) {
    for (const std::string_view mark : kLeadingOn) {
        if (!text.ends_with(mark)) continue;
        text.resize(text.size() - mark.size());
        return;
    }
}

// "Marsh, J. T." and "Rivers, Ann, Jr.": the point belongs to the word.
bool EndsInInitial(std::string_view text) {
    if (text.ends_with(" Jr.") || text.ends_with(" Sr.")) return true;
    const std::size_t size = text.size();
    const bool isOneLetter = size >= 3 && (text[size - 3] == ' ' || text[size - 3] == '.');
    return text.ends_with('.') && isOneLetter &&
           std::isupper(static_cast<unsigned char>(text[size - 2])) != 0;
}

// Whether the text has a mark already, if perhaps another one. A full stop after a heading's last
// word is taken for the cataloger's own; one after an initial leaves room for a comma.
bool IsMarked(std::string_view text, const IsbdMark& mark) {
    if (EndsInOneOf(text, kLeads) || EndsWithMark(text, mark)) return true;
    return mark.isHeading && text.ends_with('.') && !EndsInInitial(text);
}

// In brackets, what follows a heading needs no mark before it.
bool StandsAlone(std::string_view text) {
    return text.starts_with('(') || text.starts_with('[');
}

void PutBetween(std::size_t first, std::size_t second, DraftedField& field) {
    SubfieldText& subfield = field.subfields[first];
    const SubfieldText& next = field.subfields[second];
    const IsbdMark* mark = IsbdMarkBetween(field.tag, subfield.code, next.code);
    if (mark != nullptr && mark->isHeading && StandsAlone(next.text)) mark = nullptr;
    if (field.ofWorkform[first]) {
        TakeLeadingMark(subfield.text);
        const bool endsHere = mark != nullptr && subfield.text.ends_with('.');
        if (endsHere) subfield.text.pop_back();
    }
    if (mark != nullptr && !IsMarked(subfield.text, *mark)) subfield.text += mark->mark;
}

// Headings of lists with a source of their own have the form of that list.
bool HasFormOfItsList(const DraftedField& field) {
    if (field.tag.front() != '6' || field.indicators[1] != '7') return false;
    return std::ranges::none_of(field.subfields, [](const SubfieldText& subfield) {
        return subfield.code == '2' && subfield.text == "lcgft";
    });
}

bool IsCopyrightDate(const DraftedField& field) {
    return field.tag == "264" && field.indicators[1] == '4';
}

// Nothing if no full stop ends the field; else whether one comes after brackets too.
std::optional<bool> EndOf(const DraftedField& field, bool hasSeries) {
    if (field.tag == "300" && hasSeries) return false;
    const auto* end = std::ranges::find_if(
        kEnds, [&](const FieldEnd& row) { return row.tags.find(field.tag) != row.tags.npos; });
    if (end == kEnds.end() || HasFormOfItsList(field) || IsCopyrightDate(field)) return {};
    return end->afterBrackets;
}

// Also by a mark of another script, or within quotation marks.
bool IsClosed(std::string_view text) {
    constexpr std::array<std::string_view, 6> kOthers{"\u3002", "\uFF01", "\uFF1F",
                                                      "\u300D", "\uFF09", "\u2026"};
    if (text.ends_with('"')) text.remove_suffix(1);
    return EndsInOneOf(text, ".?!-") || EndsInOneOf(text, kLeads) ||
           std::ranges::any_of(kOthers, [text](auto mark) { return text.ends_with(mark); });
}

void Close(std::optional<bool> end, std::string& text) {
    if (!end || text.empty() || IsClosed(text)) return;
    if (*end || !EndsInOneOf(text, ")]>")) text += '.';
}

// The subfields that are punctuated, in their order.
std::vector<std::size_t> Described(const DraftedField& field) {
    std::vector<std::size_t> indexes;
    for (std::size_t i = 0; i < field.subfields.size(); ++i) {
        if (!IsControlSubfield(field.subfields[i])) indexes.push_back(i);
    }
    return indexes;
}

}  // namespace

void Punctuate(Punctuation punctuation, bool hasSeries, DraftedField& field) {
    const std::vector<std::size_t> described = Described(field);
    if (described.empty()) return;
    for (std::size_t i = 0; i + 1 < described.size(); ++i) {
        if (punctuation == Punctuation::Put) PutBetween(described[i], described[i + 1], field);
        const bool loses = punctuation == Punctuation::Omit && field.ofWorkform[described[i]];
        if (loses) TakeLeadingMark(field.subfields[described[i]].text);
    }
    std::string& last = field.subfields[described.back()].text;
    if (field.ofWorkform[described.back()]) TakeLeadingMark(last);
    if (punctuation == Punctuation::Put) Close(EndOf(field, hasSeries), last);
}

}  // namespace quillory
