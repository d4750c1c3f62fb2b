#include <zorby/copies/detail/HoldingsDataOrder.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <tuple>
#include <utility>

namespace zorby {
namespace {

using Elements = std::vector<std::unique_ptr<CHoldingsDataElement>>;

constexpr std::int8_t kLowestCode = 32;  // lower ones are places in a composed subfield
constexpr std::int8_t kNoCode = std::numeric_limits<std::int8_t>::min();

struct Place {
    bool isUnknown = true;
    std::uint32_t tagFromAbove = 0;
    bool isDigit = false;
    std::int8_t code = kNoCode;
    std::int32_t rank = 0;

    auto Key() const { return std::tie(isUnknown, tagFromAbove, isDigit, code, rank); }
};

Place PlaceOf(EHOLDINGSID id) {
    const CInfoAboutHoldingsField* field = CInfoAboutHoldingsTypeList::FindFromID(id);
    if (!field) return {};
    Place place{false, ~field->GetTag()};
    if (field->GetSubfield() < kLowestCode) {
        place.rank = id;
    } else {
        place.code = field->GetSubfield();
        place.isDigit = '0' <= place.code && place.code <= '9';
    }
    return place;
}

bool Has(const Elements& elements, EHOLDINGSID id) {
    return std::ranges::any_of(elements,
                               [=](const auto& element) { return element->GetID() == id; });
}

// Further values of an item come after the first even if a dictionary gives them a lower code. If
// only these two were compared by number, the order would contradict itself.
Place PlaceOfSecond(const HoldingsPair& pair) {
    const Place first = PlaceOf(pair.first);
    const Place second = PlaceOf(pair.second);
    const bool areTogether = !first.isUnknown && !second.isUnknown &&
                             first.tagFromAbove == second.tagFromAbove &&
                             first.isDigit == second.isDigit;
    if (!areTogether || second.Key() > first.Key()) return second;
    Place after = first;
    ++after.rank;
    return after;
}

// Returns the pairs whose first element is there.
std::vector<HoldingsPair> PairsIn(const Elements& elements) {
    std::vector<HoldingsPair> pairs;
    for (const HoldingsTypeRow& row : HoldingsTypeTable()) {
        if (row.pair.sortsAfterFirst && Has(elements, row.pair.first)) pairs.push_back(row.pair);
    }
    return pairs;
}

}  // namespace

void SortForOutput(Elements& elements) {
    const std::vector<HoldingsPair> pairs = PairsIn(elements);
    std::vector<std::pair<Place, std::unique_ptr<CHoldingsDataElement>>> placed;
    placed.reserve(elements.size());
    for (auto& element : elements) {
        const EHOLDINGSID id = element->GetID();
        const auto pair = std::ranges::find(pairs, id, &HoldingsPair::second);
        placed.emplace_back(pair == pairs.end() ? PlaceOf(id) : PlaceOfSecond(*pair),
                            std::move(element));
    }
    std::ranges::stable_sort(placed, {}, [](const auto& entry) { return entry.first.Key(); });
    for (std::size_t i = 0; i < elements.size(); ++i) elements[i] = std::move(placed[i].second);
}

}  // namespace zorby
