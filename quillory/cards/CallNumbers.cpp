#include <quillory/cards/CallNumbers.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

// Local call numbers first, then those of the Library of Congress, then classification numbers.
constexpr const char* kCustomaryPlaces =
    "099ab, 090ab, 092ab, 096ab, 050ab, 055ab, 060ab, 070ab, 082ab, 080ab";

PlaceSet Parsed(const std::string& places) {
    return ParsePlaceSet(places).places;
}

// The places of the user's own fields come before the customary ones.
PlaceSet PlacesOfTitle(const HoldingsSystem& system) {
    PlaceSet places;
    if (!system.HasElements()) {
        places = Parsed(zorby::CHoldingsSelector::GetCustomCallNumber());
    }
    const PlaceSet customary = Parsed(kCustomaryPlaces);
    places.patterns.insert(places.patterns.end(), customary.patterns.begin(),
                           customary.patterns.end());
    return places;
}

// In Dewey numbers of records "/" tells where the number may be cut, and is not printed.
bool HasCuttingMarks(const PlacePattern& pattern) {
    return pattern.Covers("082") || pattern.Covers("083");
}

std::string TitleCallNumber(const CardRecord& texts, const PlaceSet& places) {
    for (const PlacePattern& pattern : places.patterns) {
        const std::vector<std::string> found = texts.TextsAt(pattern);
        if (found.empty()) continue;
        std::string callNumber = found.front();
        if (HasCuttingMarks(pattern)) std::erase(callNumber, '/');
        return callNumber;
    }
    return {};
}

}  // namespace

CallNumbers::CallNumbers(const PlaceSet& places)
    : system_(HoldingsSystemInForce()),
      copies_(system_, system_),
      readsCopies_(places.Empty()),
      places_(places.Empty() ? PlacesOfTitle(system_) : places) {}

std::vector<ShelvedCopy> CallNumbers::Of(const Record& record, const CardRecord& texts,
                                         ValueReader& reader) {
    CopiesOfRecord copies;
    if (readsCopies_) copies_.Take(record, copies);
    std::vector<ShelvedCopy> shelved;
    for (int i = 0; i < copies.copies.GetSize(); ++i) {
        const zorby::CHoldingsDataRecord* copy = copies.copies.GetAt(i);
        if (copy == nullptr) continue;
        const auto utf8 = [&](const std::string& bytes) {
            return std::string(reader.TextOf(record, {{}, bytes}));
        };
        ShelvedCopy one{utf8(copy->GetRecVCallNumber()), utf8(copy->GetRecVBarCode())};
        if (!one.callNumber.empty()) shelved.push_back(std::move(one));
    }
    if (shelved.empty()) shelved.push_back({TitleCallNumber(texts, places_), {}});
    return shelved;
}

std::vector<std::string> CallNumberLines(const std::string& callNumber) {
    if (callNumber.empty()) return {};
    const std::string broken = zorby::CGeneral::BreakCallNumber(callNumber, 1);
    std::vector<std::string> lines(1);
    for (const char c : broken) {
        if (c == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    return lines;
}

}  // namespace quillory
