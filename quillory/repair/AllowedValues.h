#pragma once

#include <quillory/coded/CodeLists.h>

#include <array>
#include <cstddef>
#include <cstdint>
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
    static constexpr std::size_t kKnown = 4096;

    enum class Answer : signed char { None, No, Yes };

    // An answer on a value of an element, both as one number each.
    struct Known {
        const Element* element = nullptr;
        std::uint64_t value = 0;
        bool isAllowed = false;
    };

    bool AllowsBytes(const Element& element, std::string_view value);
    bool LookUp(const Element& element, std::string_view value) const;
    bool HasCodesOnly(const Element& element, std::string_view value) const;

    const CodeLists& lists_;
    std::vector<std::array<Answer, 256>> answers_;  // by the number of an element's first part
    std::vector<Known> known_{kKnown};
};

}  // namespace quillory
