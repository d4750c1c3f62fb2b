#pragma once

#include <quillory/coded/Elements.h>
#include <quillory/repair/TablePlace.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillory {

// Remembers answers on values of elements, of up to seven bytes. A new answer takes the place of an
// older one, so their number is bounded.
template <class Answer>
class KnownValues {
public:
    // `find` gives an answer that is not known.
    template <class Find>
    Answer Get(const Element& element, std::string_view value, Find find) {
        if (value.size() >= sizeof(std::uint64_t)) return find();
        std::uint64_t number = 1;  // keeps values of different lengths apart
        for (const char c : value) number = number << 8 | static_cast<unsigned char>(c);
        Known& known = known_[TablePlace(&element, number, kMost)];
        if (known.element != &element || known.value != number) known = {&element, number, find()};
        return known.answer;
    }

private:
    struct Known {
        const Element* element = nullptr;
        std::uint64_t value = 0;
        Answer answer = {};
    };

    static constexpr std::size_t kMost = 1024;

    std::vector<Known> known_{kMost};
};

}  // namespace quillory
