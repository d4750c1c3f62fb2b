#include <zorby/copies/detail/HoldingsDataOrder.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <tuple>
#include <utility>

namespace zorby {
namespace {

using Elements = std::vector<std::unique_ptr<CHoldingsDataElement>>;

constexpr std::int8_t kLowestCode = 32;  // below it are places in a composed subfield
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

// The second occurrences of an item go behind the first even where a dictionary gives them a lower
// code. Comparing the two alone by number would not make one order with all others.
Place PlaceOfSecondItem() {
    const Place first = PlaceOf(HID_TYPE_12_ITEM_1);
    const Place second = PlaceOf(HID_TYPE_12_ITEM_2);
    const bool areTogether = !first.isUnknown && !second.isUnknown &&
                             first.tagFromAbove == second.tagFromAbove &&
                             first.isDigit == second.isDigit;
    if (!areTogether || second.Key() > first.Key()) return second;
    Place behind = first;
    ++behind.rank;
    return behind;
}

}  // namespace

void SortForOutput(Elements& elements) {
    const bool hasFirstItem = Has(elements, HID_TYPE_12_ITEM_1);
    std::vector<std::pair<Place, std::unique_ptr<CHoldingsDataElement>>> placed;
    placed.reserve(elements.size());
    for (auto& element : elements) {
        const EHOLDINGSID id = element->GetID();
        const bool isSecond = hasFirstItem && id == HID_TYPE_12_ITEM_2;
        placed.emplace_back(isSecond ? PlaceOfSecondItem() : PlaceOf(id), std::move(element));
    }
    std::ranges::stable_sort(placed, {}, [](const auto& entry) { return entry.first.Key(); });
    for (std::size_t i = 0; i < elements.size(); ++i) elements[i] = std::move(placed[i].second);
}

}  // namespace zorby
