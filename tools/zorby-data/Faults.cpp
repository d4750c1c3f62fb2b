#include <tools/zorby-data/Faults.h>

namespace datatool {

void Faults::Add(const Place& place, std::string reason) {
    reasons_.emplace(place, std::move(reason));
}

std::string Faults::LineOf(const Place& place) const {
    return files_.at(place.file) + ":" + std::to_string(place.line);
}

std::string Faults::Text() const {
    constexpr std::size_t kMost = 20;
    std::string text;
    std::size_t told = 0;
    for (const auto& [place, reason] : reasons_) {
        if (told == kMost) break;
        text += LineOf(place) + ":" + std::to_string(place.column) + ": " + reason + "\n";
        ++told;
    }
    if (reasons_.size() > told) text += std::to_string(reasons_.size() - told) + " more faults\n";
    return text;
}

}  // namespace datatool
