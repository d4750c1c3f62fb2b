#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/repair/KnownValues.h>

#include <array>
#include <string_view>
#include <vector>

namespace quillory {

// The values that the format allows in an element, or once allowed. Bytes of an undefined element
// are blank, filled, or codes that stood there before it became undefined. One object remembers its
// answers: all of those on elements of one byte, the last ones on others.
class AllowedValues {
public:
    // Keeps the reference.
    explicit AllowedValues(const CodeLists& lists) : lists_(lists) {}

    bool Allows(const Element& element, std::string_view value);

private:
    enum class Answer : signed char { None, No, Yes };

    bool LookUp(const Element& element, std::string_view value) const;
    bool HasCodesOnly(const Element& element, std::string_view value) const;

    const CodeLists& lists_;
    std::vector<std::array<Answer, 256>> answers_;  // by the number of an element's first part
    KnownValues<bool> known_;
};

}  // namespace quillory
