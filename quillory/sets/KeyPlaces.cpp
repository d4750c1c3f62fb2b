#include <quillory/faults/Errors.h>
#include <quillory/sets/KeyPlaces.h>
#include <quillory/text/SearchText.h>

namespace quillory {
namespace {

constexpr std::string_view kTitle = "title";

std::vector<std::string> Parts(const std::string& text) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

}  // namespace

PlaceSet ParsePlaces(const std::string& option, const std::string& text) {
    PlaceSetReading reading = ParsePlaceSet(text);
    if (reading.fault) throw UsageError(option + ": " + CaretText(text, reading.fault));
    return std::move(reading.places);
}

std::vector<KeyPlace> ParseKeyPlaces(const std::string& option, const std::string& text) {
    std::vector<KeyPlace> places;
    for (const std::string& part : Parts(text)) {
        if (Folded(TidyText(part)) == kTitle) {
            places.push_back({true, {}});
            continue;
        }
        for (const PlacePattern& pattern : ParsePlaces(option, part).patterns) {
            places.push_back({false, {{pattern}}});
        }
    }
    return places;
}

KeyPlace ParseKeyPlace(const std::string& option, const std::string& text) {
    const auto places = ParseKeyPlaces(option, text);
    if (places.size() != 1) throw UsageError(option + ": \"" + text + "\" is more than one place");
    return places.front();
}

}  // namespace quillory
