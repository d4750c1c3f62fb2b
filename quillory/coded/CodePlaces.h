#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// Knows where each code stands in a list of what has a `code`. It is made anew at every start of
// the program, so it allocates nothing for each of them.
class CodePlaces {
public:
    // Null if the list lacks the code.
    template <class List>
    const std::size_t* Find(const List& list, std::string_view code) const {
        const std::size_t at = FirstNotBefore(list, code);
        return Has(list, code, at) ? &places_[at] : nullptr;
    }

    // Adds a code that is to come at the end of the list, unless the list has it. Result: where it
    // is found, and whether it is new.
    template <class List>
    std::pair<std::size_t&, bool> Add(const List& list, std::string_view code) {
        const std::size_t at = FirstNotBefore(list, code);
        const bool isNew = !Has(list, code, at);
        if (isNew) places_.insert(places_.begin() + static_cast<std::ptrdiff_t>(at), list.size());
        return {places_[at], isNew};
    }

private:
    // Most lists are in order, so a code mostly comes behind the others.
    template <class List>
    std::size_t FirstNotBefore(const List& list, std::string_view code) const {
        const auto isBefore = [&list](std::size_t place, std::string_view other) {
            return std::string_view(list[place].code) < other;
        };
        if (places_.empty() || isBefore(places_.back(), code)) return places_.size();
        const auto at = std::lower_bound(places_.begin(), places_.end(), code, isBefore);
        return static_cast<std::size_t>(at - places_.begin());
    }

    template <class List>
    bool Has(const List& list, std::string_view code, std::size_t at) const {
        return at < places_.size() && list[places_[at]].code == code;
    }

    std::vector<std::size_t> places_;  // in the order of the codes
};

}  // namespace quillory
