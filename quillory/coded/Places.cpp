#include <quillory/coded/Material.h>
#include <quillory/coded/Places.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view kPart = "part";

enum class Field { Leader, Field006, Field007, Field008 };

// A place taken apart: tag, letter, positions.
struct Parsed {
    Field field = Field::Leader;
    std::string tag;
    char letter = 0;
    std::optional<int> first;
    int last = 0;
};

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if ('A' <= c && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::optional<int> NumberOf(std::string_view text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    const auto read = std::from_chars(text.data(), end, number);
    return isNumber && read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

bool ParsePositions(std::string_view text, Parsed& parsed) {
    const std::size_t dash = std::min(text.find('-'), text.size());
    parsed.first = NumberOf(text.substr(0, dash));
    const auto last = dash == text.size() ? parsed.first : NumberOf(text.substr(dash + 1));
    parsed.last = last.value_or(-1);
    return parsed.first && last && *parsed.first <= *last;
}

bool ParseField(std::string_view name, Parsed& parsed) {
    parsed.tag = name;
    if (name == "leader" || name == "ldr") {
        parsed.tag = "leader";
        return true;
    }
    constexpr std::size_t kTag = 3;
    const std::string_view tag = name.substr(0, kTag);
    if (tag == "006") parsed.field = Field::Field006;
    if (tag == "007") parsed.field = Field::Field007;
    if (tag == "008") parsed.field = Field::Field008;
    if (parsed.field == Field::Leader || name.size() > kTag + 1) return false;
    if (name.size() > kTag) parsed.letter = name[kTag];
    parsed.tag = tag;
    return true;
}

std::vector<CFType> FormsOf(const Parsed& parsed) {
    if (parsed.field == Field::Leader) return {CFLdr};
    const std::vector<CFType>& all = parsed.field == Field::Field007 ? FormsOf007() : FormsOf006();
    std::vector<CFType> forms;
    if (parsed.field == Field::Field008 && parsed.letter == 0) forms.push_back(CF008Standard);
    for (const CFType form : all) {
        const bool isWanted =
            parsed.letter == 0 || FormLetters(form).find(parsed.letter) != std::string_view::npos;
        if (isWanted) forms.push_back(form);
    }
    // The positions common to all materials belong to each of them.
    if (parsed.field == Field::Field008 && parsed.letter != 0 && !forms.empty()) {
        forms.insert(forms.begin(), CF008Standard);
    }
    return forms;
}

bool Holds(const Parsed& parsed, const Element& element) {
    const bool isMaterial008 = parsed.field == Field::Field008 && IsFormOf006(element.form);
    if (isMaterial008 && element.first == 0) return false;  // the Leader has it
    const int offset = isMaterial008 ? kMaterialOffset008 : 0;
    return !parsed.first ||
           (element.first + offset <= parsed.last && element.last + offset >= *parsed.first);
}

std::string LettersOf(Field field) {
    std::string letters;
    for (const CFType form : field == Field::Field007 ? FormsOf007() : FormsOf006()) {
        for (const char letter : FormLetters(form)) letters += std::string(" ") + letter;
    }
    return letters;
}

std::string WhatExists(const Parsed& parsed, const std::vector<CFType>& forms) {
    if (forms.empty()) {
        return parsed.tag + " has no form " + parsed.letter + ", but" + LettersOf(parsed.field);
    }
    int length = 0;
    for (const CFType form : forms) length = std::max(length, LengthOfForm(form));
    return parsed.tag + (parsed.letter == 0 ? "" : std::string(1, parsed.letter)) +
           " has the positions " + PositionsText(0, length - 1);
}

NamedPlace FindPart(std::string_view number) {
    const auto part = NumberOf(number);
    const Element* element = part ? ElementOfPart(static_cast<CFPart>(*part)) : nullptr;
    if (element != nullptr) return {{{element, IsFormOf006(element->form)}}, ""};
    return {{}, "there is no part " + std::string(number) + ", but such as 16, 107, 310, 1702"};
}

}  // namespace

bool IsCodedPlace(std::string_view text) {
    const std::string lower = Lower(text);
    if (lower.starts_with(kPart) || lower.starts_with("leader") || lower.starts_with("ldr")) {
        return true;
    }
    const bool isCodedField =
        lower.starts_with("006") || lower.starts_with("007") || lower.starts_with("008");
    return isCodedField && lower.size() > 3;
}

NamedPlace FindPlace(std::string_view text) {
    const std::string lower = Lower(text);
    if (lower.starts_with(kPart)) {
        const std::size_t number =
            std::min(lower.find_first_not_of(' ', kPart.size()), lower.size());
        return FindPart(std::string_view(lower).substr(number));
    }
    const std::size_t slash = std::min(lower.find('/'), lower.size());
    Parsed parsed;
    bool isPlace = ParseField(lower.substr(0, slash), parsed);
    if (isPlace && slash < lower.size()) isPlace = ParsePositions(lower.substr(slash + 1), parsed);
    if (!isPlace) {
        return {{},
                std::string(text) +
                    " is no place: such are leader/06, 008/18, 008a/18-21, 006/05, 007c/01 and "
                    "part 310"};
    }
    NamedPlace place;
    const std::vector<CFType> forms = FormsOf(parsed);
    for (const CFType form : forms) {
        for (const Element& element : ElementsOf(form)) {
            const bool in008 = parsed.field == Field::Field008;
            if (Holds(parsed, element)) place.elements.push_back({&element, in008});
        }
    }
    if (place.elements.empty()) place.error = WhatExists(parsed, forms);
    return place;
}

}  // namespace quillory
