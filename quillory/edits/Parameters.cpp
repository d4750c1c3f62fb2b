#include <quillory/edits/Parameters.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Charset.h>

#include <algorithm>

namespace quillory {
void Parameters::Set(std::string_view name, std::string value) {
    values_[std::string(name)] = std::move(value);
}

std::string Parameters::Text(std::string_view name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::string() : found->second;
}

std::string Parameters::FieldText(std::string_view name) const {
    std::string text = Text(name);
    const bool isText = IsValidUtf8(text) && std::ranges::none_of(text, IsAsciiControl);
    if (!isText) throw ParameterError(name, {FaultCode::kNoFieldText});
    return text;
}

PlaceSet Parameters::Places(std::string_view name) const {
    const PlaceSetReading reading = ParsePlaceSet(Text(name));
    const Fault& fault = reading.fault;
    if (fault) throw ParameterError(name, fault);
    return reading.places;
}

Place Parameters::OnePlace(std::string_view name) const {
    const std::string text = Text(name);
    const auto place = ParsePlace(text);
    if (!place) throw ParameterError(name, {FaultCode::kNoPlace, {}, text});
    return *place;
}

}  // namespace quillory
