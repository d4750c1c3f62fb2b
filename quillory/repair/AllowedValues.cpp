#include <quillory/coded/FreeValues.h>
#include <quillory/repair/AllowedValues.h>

#include <algorithm>

namespace quillory {

bool AllowedValues::Allows(const Element& element, std::string_view value) {
    if (value.size() != 1 || element.IsUndefined()) return LookUp(element, value);
    const auto number = static_cast<std::size_t>(element.parts.front());
    if (number >= answers_.size()) answers_.resize(number + 1);
    Answer& answer = answers_[number][static_cast<unsigned char>(value.front())];
    if (answer == Answer::None) answer = LookUp(element, value) ? Answer::Yes : Answer::No;
    return answer == Answer::Yes;
}

bool AllowedValues::LookUp(const Element& element, std::string_view value) const {
    if (element.IsUndefined()) return IsAll(value, ' ') || IsAll(value, kFill);
    if (const auto freeValue = ReadFreeValue(element.parts.front(), value)) return freeValue->fits;
    return std::ranges::all_of(lists_.SplitCodes(element, value), [&](std::string_view code) {
        return lists_.StateOf(element, code) != CodeState::Unknown;
    });
}

std::string AllowedValues::Choose(const Element& element, std::string_view before,
                                  std::string_view proposed) {
    if (Allows(element, before)) return std::string(before);
    const std::string codes = CodesAllowedOf(element, before, proposed);
    return AllowedOrFill(element, IsAll(codes, ' ') ? std::string(proposed) : codes);
}

// `proposed` for an element of one code.
std::string AllowedValues::CodesAllowedOf(const Element& element, std::string_view before,
                                          std::string_view proposed) const {
    std::string codes(proposed);
    const auto length = static_cast<std::size_t>(std::max(lists_.CodeLengthOf(element), 1));
    if (element.IsUndefined() || length >= before.size()) return codes;
    for (std::size_t i = 0; i + length <= before.size(); i += length) {
        const std::string_view code = before.substr(i, length);
        const bool isKept =
            !IsAll(code, ' ') && lists_.StateOf(element, code) != CodeState::Unknown;
        codes.replace(i, length, isKept ? std::string(code) : std::string(length, ' '));
    }
    return codes;
}

// The library's default may be a code that the format does not have.
std::string AllowedValues::AllowedOrFill(const Element& element, const std::string& value) {
    if (Allows(element, value)) return value;
    std::string fill(value.size(), kFill);
    return Allows(element, fill) ? fill : value;
}

}  // namespace quillory
