#include <quillory/coded/Material.h>
#include <quillory/coded/Places.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view kPart = "part";
constexpr unsigned kAdditional = 6;
constexpr unsigned kPhysical = 7;
constexpr unsigned kFixedLength = 8;

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if ('A' <= c && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

bool IsCoded(const Place& place) {
    const unsigned tag = place.Number();
    return place.IsLeader() || tag == kAdditional || tag == kPhysical || tag == kFixedLength;
}

const std::vector<CFType>& FormsOfMaterials(const Place& place) {
    return place.Number() == kPhysical ? FormsOf007() : FormsOf006();
}

std::vector<CFType> FormsOf(const Place& place) {
    if (place.IsLeader()) return {CFLdr};
    std::vector<CFType> forms;
    for (const CFType form : FormsOfMaterials(place)) {
        const bool isWanted =
            place.material == '\0' || FormLetters(form).find(place.material) != std::string::npos;
        if (isWanted) forms.push_back(form);
    }
    // The positions common to all materials belong to each of them.
    if (place.Number() == kFixedLength && !forms.empty()) {
        forms.insert(forms.begin(), CF008Standard);
    }
    return forms;
}

bool Holds(const Place& place, const Element& element) {
    const bool in008 = place.Number() == kFixedLength && IsFormOf006(element.form);
    if (in008 && element.first == 0) return false;  // the Leader has it
    const Place at = PlaceOf(element, in008);
    return !place.HasPositions() || (at.first <= place.last && at.last >= place.first);
}

std::string LettersOf(const Place& place) {
    std::string letters;
    for (const CFType form : FormsOfMaterials(place)) {
        for (const char letter : FormLetters(form)) {
            letters += (letters.empty() ? "" : " ") + std::string(1, letter);
        }
    }
    return letters;
}

Fault WhyNone(const Place& place, const std::vector<CFType>& forms) {
    if (forms.empty()) {
        return {FaultCode::kNoSuchMaterial, place.Field(), std::string(1, place.material),
                LettersOf(place)};
    }
    int length = 0;
    for (const CFType form : forms) length = std::max(length, LengthOfForm(form));
    Place field = place.Field();
    field.material = place.material;
    return {FaultCode::kNoSuchPosition, field, {}, PositionsText(0, length - 1)};
}

NamedPlace FindPart(std::string_view digits) {
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end;
    const Element* element = isNumber ? ElementOfPart(static_cast<CFPart>(number)) : nullptr;
    if (element != nullptr) return {{{element, IsFormOf006(element->form)}}, {}};
    return {{}, {FaultCode::kNoSuchPart, {}, std::string(digits)}};
}

}  // namespace

bool IsCodedPlace(std::string_view text) {
    const std::string lower = Lower(text);
    for (const std::string_view word :
         {kPart, std::string_view("leader"), std::string_view("ldr")}) {
        if (lower.starts_with(word)) return true;
    }
    const unsigned tag = TagNumber(lower.substr(0, kTagSize));
    return kAdditional <= tag && tag <= kFixedLength && lower.size() > kTagSize;
}

NamedPlace FindPlace(std::string_view text) {
    const std::string lower = Lower(text);
    if (lower.starts_with(kPart)) {
        const std::size_t number =
            std::min(lower.find_first_not_of(' ', kPart.size()), lower.size());
        return FindPart(std::string_view(lower).substr(number));
    }
    const std::optional<Place> place = ParsePlace(text);
    if (!place || !IsCoded(*place) || place->occurrence != 0) {
        return {{}, {FaultCode::kNoCodedPlace, {}, std::string(text)}};
    }
    NamedPlace named;
    const std::vector<CFType> forms = FormsOf(*place);
    for (const CFType form : forms) {
        for (const Element& element : ElementsOf(form)) {
            const bool in008 = place->Number() == kFixedLength;
            if (Holds(*place, element)) named.elements.push_back({&element, in008});
        }
    }
    if (named.elements.empty()) named.fault = WhyNone(*place, forms);
    return named;
}

}  // namespace quillory
