#include <quillory/jobs/GivenNumber.h>
#include <quillory/text/Fnv1a.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>

namespace quillory {
namespace {

constexpr std::string_view kAfterPlace = ": ";

}  // namespace

std::string GivenNumberText(const NumberMet& met) {
    constexpr std::size_t kLongest = 64;
    constexpr std::size_t kLongestBeforeHash = 47;
    std::string text = PlaceText(met.place).append(kAfterPlace);
    const auto isPlain = [](char c) { return c >= ' ' && c < 0x7F; };
    if (met.number.size() <= kLongest && std::ranges::all_of(met.number, isPlain)) {
        return text.append(met.number);
    }
    char hash[18];
    std::snprintf(hash, sizeof hash, "#%016" PRIx64, Fnv1aOf(met.number));
    return text.append(Printable(met.number.substr(0, kLongestBeforeHash))).append(hash);
}

std::optional<GivenNumber> ParseGivenNumber(std::string_view text) {
    const std::size_t sign = text.find(kAfterPlace);
    if (sign == text.npos) return std::nullopt;
    auto place = ParsePlace(text.substr(0, sign));
    if (!place || place->Tag().empty()) return std::nullopt;
    place->occurrence = std::max(place->occurrence, 1U);  // which goes without saying
    return GivenNumber{*place, text.substr(sign + kAfterPlace.size())};
}

}  // namespace quillory
