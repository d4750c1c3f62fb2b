#include <quillory/text/NearestNames.h>
#include <quillory/text/SearchText.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kMostNames = 5;

// Bytes to be added, left out or replaced on the way from one text to the other.
std::size_t Distance(const std::string& from, const std::string& to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::vector<std::string> NearestNames(const std::string& text,
                                      const std::vector<std::string>& names) {
    constexpr std::size_t kLongest = 256;
    const std::string wanted = Folded(text).substr(0, kLongest);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& name : names) {
        const std::string folded = Folded(name);
        const bool holds = !wanted.empty() && folded.find(wanted) != folded.npos;
        const std::size_t distance = holds ? 0 : Distance(wanted, folded);
        const bool isNear = distance <= std::max(wanted.size(), folded.size()) / 2;
        if (isNear) near.emplace_back(distance, name);
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    near.resize(std::min(near.size(), kMostNames));
    std::vector<std::string> nearest;
    nearest.reserve(near.size());
    for (auto& [distance, name] : near) nearest.push_back(std::move(name));
    return nearest;
}

std::string PerhapsMeant(const std::string& name) {
    return name.empty() ? "" : "; perhaps " + name + " is meant";
}

std::string PerhapsMeant(const std::string& text, const std::vector<std::string>& names) {
    const std::vector<std::string> nearest = NearestNames(text, names);
    return PerhapsMeant(nearest.empty() ? "" : nearest.front());
}

}  // namespace quillory
