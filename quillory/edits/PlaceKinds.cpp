#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>

namespace quillory {
namespace {

ParameterError NotTaken(std::string_view name, const std::string& place, std::string_view allowed) {
    return {name, {FaultCode::kNoPlaceForOperation, {}, place, std::string(allowed)}};
}

bool IsAmong(PlaceKind kind, std::initializer_list<PlaceKind> kinds) {
    return std::ranges::find(kinds, kind) != kinds.end();
}

}  // namespace

PlaceKind KindOf(const Place& place) {
    if (place.indicator != 0) return PlaceKind::Indicator;
    if (place.code != '\0') return PlaceKind::Subfield;
    if (place.HasPositions()) return PlaceKind::Positions;
    return place.IsControl() ? PlaceKind::ControlField : PlaceKind::Field;
}

PlaceKind KindOf(const PlacePattern& pattern) {
    return pattern.HasCodes() ? PlaceKind::Subfield : KindOf(pattern.place);
}

PlaceSet PlacesOfKind(const Parameters& parameters, std::string_view name,
                      std::initializer_list<PlaceKind> kinds, std::string_view allowed) {
    PlaceSet places = parameters.Places(name);
    for (const PlacePattern& pattern : places.patterns) {
        const bool isWholeLeader = pattern.place.IsLeader() && !pattern.place.HasPositions();
        if (isWholeLeader || !IsAmong(KindOf(pattern), kinds)) {
            throw NotTaken(name, PlacePatternText(pattern), allowed);
        }
    }
    return places;
}

Place PlaceOfKind(const Parameters& parameters, std::string_view name,
                  std::initializer_list<PlaceKind> kinds, std::string_view allowed) {
    const Place place = parameters.OnePlace(name);
    const bool isWholeLeader = place.IsLeader() && !place.HasPositions();
    if (!isWholeLeader && IsAmong(KindOf(place), kinds)) return place;
    throw NotTaken(name, PlaceText(place), allowed);
}

}  // namespace quillory
