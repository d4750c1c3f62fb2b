#include <quillory/coded/FreeValues.h>
#include <quillory/repair/CodedValue.h>

#include <algorithm>

namespace quillory {

bool AllowedValues::LookUp(const Element& element, std::string_view value) const {
    if (element.IsUndefined()) return IsAll(value, ' ') || IsAll(value, kFill);
    if (const auto freeValue = ReadFreeValue(element.parts.front(), value)) return freeValue->fits;
    const auto codes = lists_.SplitCodes(element, value);
    return std::all_of(codes.begin(), codes.end(), [&](std::string_view code) {
        return lists_.StateOf(element, code) != CodeState::Unknown;
    });
}

bool AllowedValues::Allows(const Element& element, std::string_view value) {
    if (value.size() != 1 || element.IsUndefined()) return LookUp(element, value);
    const auto number = static_cast<std::size_t>(element.parts.front());
    if (number >= answers_.size()) answers_.resize(number + 1);
    Answer& answer = answers_[number][static_cast<unsigned char>(value.front())];
    if (answer == Answer::None) answer = LookUp(element, value) ? Answer::Yes : Answer::No;
    return answer == Answer::Yes;
}

std::string AllowedValues::Protected(const Element& element, std::string_view before,
                                     std::string_view after) {
    if (Allows(element, before)) return std::string(before);
    std::string value(after);
    const auto length = static_cast<std::size_t>(std::max(lists_.CodeLengthOf(element), 1));
    if (element.IsUndefined() || length >= before.size()) return AllowedOrFill(element, value);
    for (std::size_t i = 0; i + length <= before.size(); i += length) {
        const std::string_view code = before.substr(i, length);
        const bool isKept =
            !IsAll(code, ' ') && lists_.StateOf(element, code) != CodeState::Unknown;
        value.replace(i, length, isKept ? std::string(code) : std::string(length, ' '));
    }
    return AllowedOrFill(element, IsAll(value, ' ') ? std::string(after) : value);
}

// The library's default may be a code that the format has not.
std::string AllowedValues::AllowedOrFill(const Element& element, const std::string& value) {
    if (Allows(element, value)) return value;
    std::string fill(value.size(), kFill);
    return Allows(element, fill) ? fill : value;
}

std::string ValueText(const CodeLists& lists, const Element& element, std::string_view value) {
    if (element.IsUndefined()) return "";
    if (const auto freeValue = ReadFreeValue(element.parts.front(), value)) return freeValue->text;
    std::string text;
    for (const CodeMeaning& code : lists.CodesIn(element, value)) {
        if (code.text.empty()) continue;
        if (!text.empty()) text += "; ";
        text += code.text;
    }
    return text;
}

}  // namespace quillory
