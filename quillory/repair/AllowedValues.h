#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/repair/KnownValues.h>

#include <string_view>

namespace quillory {

// The values that the format allows in an element, or once allowed. Bytes of an undefined element
// are blank, filled, or codes that stood there before it became undefined. One object remembers its
// last answers.
class AllowedValues {
public:
    // Keeps the reference.
    explicit AllowedValues(const CodeLists& lists) : lists_(lists) {}

    bool Allows(const Element& element, std::string_view value);

private:
    bool LookUp(const Element& element, std::string_view value) const;
    bool HasCodesOnly(const Element& element, std::string_view value) const;

    const CodeLists& lists_;
    KnownValues<bool> known_;
};

}  // namespace quillory
