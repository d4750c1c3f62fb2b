#pragma once

#include <quillory/coded/CodeLists.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What values the format allows, or once allowed where the element is still defined. Remembers what
// was asked of elements of one byte.
class AllowedValues {
public:
    // Keeps the reference.
    explicit AllowedValues(const CodeLists& lists) : lists_(lists) {}

    bool Allows(const Element& element, std::string_view value);

    // `after` with what the format allows put back from `before`: the value, or of an element of
    // several codes those that are allowed; not coded ("|") if neither is allowed. Both are as wide
    // as the element.
    std::string Protected(const Element& element, std::string_view before, std::string_view after);

private:
    enum class Answer : signed char { None, No, Yes };

    bool LookUp(const Element& element, std::string_view value) const;
    // The fill character for what is no value of the element, where it may be filled.
    std::string AllowedOrFill(const Element& element, const std::string& value);

    const CodeLists& lists_;
    std::vector<std::array<Answer, 256>> answers_;  // by the number of an element's first part
};

// What a value says, in UTF-8; several codes with "; " between them. Empty if nothing is known.
std::string ValueText(const CodeLists& lists, const Element& element, std::string_view value);

}  // namespace quillory
