#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace quillory {

// How many elements two sequences have in common at most, from each pair of places on.
template <class Element>
class CommonCounts {
public:
    CommonCounts(std::span<const Element> before, std::span<const Element> after)
        : width_(after.size() + 1), counts_((before.size() + 1) * width_) {
        for (std::size_t i = before.size(); i-- > 0;) {
            for (std::size_t k = after.size(); k-- > 0;) {
                counts_[i * width_ + k] = before[i] == after[k]
                                              ? From(i + 1, k + 1) + 1
                                              : std::max(From(i + 1, k), From(i, k + 1));
            }
        }
    }

    std::uint32_t From(std::size_t i, std::size_t k) const { return counts_[i * width_ + k]; }

private:
    std::size_t width_;
    std::vector<std::uint32_t> counts_;
};

// Calls `common(i, k)` for the elements that two sequences have in common, in one order, and as
// many as possible: before[i] equals after[k]. Where what stands between their equal beginnings and
// ends is too long to be looked at pair by pair, none of it counts.
template <class Element, class Common>
void ForEachCommon(std::span<const Element> before, std::span<const Element> after,
                   Common&& common) {
    constexpr std::size_t kMostPairs = std::size_t{16} << 20;
    const auto differs = std::ranges::mismatch(before, after).in1;
    const auto front = static_cast<std::size_t>(differs - before.begin());
    for (std::size_t i = 0; i < front; ++i) common(i, i);
    std::span<const Element> gone = before.subspan(front);
    std::span<const Element> come = after.subspan(front);
    while (!gone.empty() && !come.empty() && gone.back() == come.back()) {
        gone = gone.first(gone.size() - 1);
        come = come.first(come.size() - 1);
    }
    if ((gone.size() + 1) * (come.size() + 1) <= kMostPairs) {
        const CommonCounts<Element> counts(gone, come);
        for (std::size_t i = 0, k = 0; i < gone.size() && k < come.size();) {
            if (gone[i] == come[k]) {
                common(front + i++, front + k++);
            } else if (counts.From(i + 1, k) >= counts.From(i, k + 1)) {
                ++i;
            } else {
                ++k;
            }
        }
    }
    const std::size_t back = before.size() - front - gone.size();
    for (std::size_t left = back; left > 0; --left) {
        common(before.size() - left, after.size() - left);
    }
}

}  // namespace quillory
