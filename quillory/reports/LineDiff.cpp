#include <quillory/reports/LineDiff.h>

#include <algorithm>
#include <span>

namespace quillory {
namespace {

using Lines = std::span<const std::string>;

// How many lines two texts have in common at most, from each pair of lines on.
class CommonLines {
public:
    CommonLines(Lines before, Lines after)
        : width_(after.size() + 1), counts_((before.size() + 1) * width_) {
        for (std::size_t i = before.size(); i > 0; --i) {
            for (std::size_t j = after.size(); j > 0; --j) {
                At(i - 1, j - 1) = before[i - 1] == after[j - 1]
                                       ? From(i, j) + 1
                                       : std::max(From(i, j - 1), From(i - 1, j));
            }
        }
    }

    unsigned From(std::size_t i, std::size_t j) const { return counts_[i * width_ + j]; }

private:
    unsigned& At(std::size_t i, std::size_t j) { return counts_[i * width_ + j]; }

    std::size_t width_;
    std::vector<unsigned> counts_;
};

void AddAll(Lines lines, bool isNew, std::vector<LineOfDiff>& diff) {
    for (const std::string& line : lines) diff.push_back({isNew, line});
}

void AddDiff(Lines before, Lines after, std::vector<LineOfDiff>& diff) {
    const CommonLines common(before, after);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < before.size() && j < after.size()) {
        if (before[i] == after[j]) {
            ++i;
            ++j;
        } else if (common.From(i + 1, j) >= common.From(i, j + 1)) {
            diff.push_back({false, before[i++]});
        } else {
            diff.push_back({true, after[j++]});
        }
    }
    AddAll(before.subspan(i), false, diff);
    AddAll(after.subspan(j), true, diff);
}

}  // namespace

std::vector<LineOfDiff> DiffOf(const std::vector<std::string>& before,
                               const std::vector<std::string>& after) {
    constexpr std::size_t kMostPairs = 4'000'000;
    const auto [endOfFront, unused] = std::ranges::mismatch(before, after);
    const auto front = static_cast<std::size_t>(endOfFront - before.begin());
    std::size_t back = 0;
    while (front + back < std::min(before.size(), after.size()) &&
           before[before.size() - back - 1] == after[after.size() - back - 1]) {
        ++back;
    }
    const Lines gone = Lines(before).subspan(front, before.size() - front - back);
    const Lines come = Lines(after).subspan(front, after.size() - front - back);
    std::vector<LineOfDiff> diff;
    if (gone.size() * come.size() <= kMostPairs) {
        AddDiff(gone, come, diff);
    } else {
        AddAll(gone, false, diff);
        AddAll(come, true, diff);
    }
    return diff;
}

}  // namespace quillory
