#pragma once

#include <quillory/coded/CodeLists.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The values that the format allows in an element, or once allowed. An undefined element is blank
// or filled, whatever the format once had there. One object remembers its answers on elements of
// one byte.
class AllowedValues {
public:
    // Keeps the reference.
    explicit AllowedValues(const CodeLists& lists) : lists_(lists) {}

    bool Allows(const Element& element, std::string_view value);

    // The value for an element that has `before`, where the library wants `proposed`; both are as
    // wide as the element. It is
    //   `before`, if the format allows that;
    //   of an element of several codes, those codes of `before` that the format allows, with blanks
    //   for the others, if any is left;
    //   `proposed`, if the format allows that;
    //   fill characters, not coded, if the format allows these;
    //   else `proposed`.
    std::string Choose(const Element& element, std::string_view before, std::string_view proposed);

private:
    enum class Answer : signed char { None, No, Yes };

    bool LookUp(const Element& element, std::string_view value) const;
    std::string CodesAllowedOf(const Element& element, std::string_view before,
                               std::string_view proposed) const;
    std::string AllowedOrFill(const Element& element, const std::string& value);

    const CodeLists& lists_;
    std::vector<std::array<Answer, 256>> answers_;  // by the number of an element's first part
};

}  // namespace quillory
