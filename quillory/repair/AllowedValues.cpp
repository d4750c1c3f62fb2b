#include <quillory/coded/FreeValues.h>
#include <quillory/repair/AllowedValues.h>

#include <algorithm>

namespace quillory {
namespace {

// Maps once had a publisher code and a citation indicator, of which no list of values is published.
bool HadFreeValues(const Element& element) {
    constexpr int kPublisherCode = 9;
    constexpr int kCitationIndicator = 15;
    return element.form == zorby::CF006Map &&
           (element.first == kPublisherCode || element.first == kCitationIndicator);
}

}  // namespace

bool AllowedValues::Allows(const Element& element, std::string_view value) {
    return known_.Get(element, value, [&] { return LookUp(element, value); });
}

bool AllowedValues::LookUp(const Element& element, std::string_view value) const {
    if (element.IsUndefined()) return HadFreeValues(element) || HasCodesOnly(element, value);
    if (const auto freeValue = ReadFreeValue(element.parts.front(), value)) return freeValue->fits;
    return std::ranges::all_of(lists_.SplitCodes(element, value), [&](std::string_view code) {
        return lists_.StateOf(element, code) != CodeState::Unknown;
    });
}

// Of an undefined element.
bool AllowedValues::HasCodesOnly(const Element& element, std::string_view value) const {
    return std::ranges::all_of(value, [&](const char& byte) {
        return byte == ' ' || byte == kFill ||
               lists_.StateOf(element, {&byte, 1}) != CodeState::Unknown;
    });
}

}  // namespace quillory
