#include <quillory/reports/CodedScreen.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/PlaceHelp.h>

#include <algorithm>
#include <optional>

namespace quillory {
namespace {

std::string TextOf(const Place& place, zorby::EDISPLAYOPTIONS display) {
    const unsigned tag = place.Number();
    if (place.indicator != 0) {
        const auto indicator = DescribeIndicator(tag, place.indicator, display);
        return indicator ? ToText(*indicator) : std::string();
    }
    std::string text;
    if (place.code != '\0') {
        if (const auto subfield = DescribeSubfield(tag, place.code, display)) {
            text = ToText(*subfield) + '\n';
        }
    }
    if (const auto field = DescribeField(tag, display, true)) text += ToText(*field);
    return text;
}

std::optional<DecodedField> Decoded(const Place& place, const Record& record,
                                    const Decoder& decoder) {
    for (DecodedField& field : DecodeRecord(record, decoder)) {
        const bool isSame = field.place.tag == place.tag &&
                            std::max(field.place.occurrence, 1U) == std::max(place.occurrence, 1U);
        if (isSame) return std::move(field);
    }
    return std::nullopt;
}

std::string NameOf(const Place& place) {
    constexpr auto kNameOnly = zorby::EDO_NameOnly;
    if (place.IsLeader()) return "Leader";
    if (place.Number() == kNoTag) return {};
    if (place.code != '\0') return SubfieldName(place.Number(), place.code, kNameOnly);
    return FieldName(place.Number(), kNameOnly);
}

}  // namespace

PlaceHelp HelpOn(const Place& place, const Record& record, const Decoder& decoder,
                 zorby::EDISPLAYOPTIONS display) {
    Place shown = place;
    shown.occurrence = 0;
    PlaceHelp help{PlaceText(shown) + "  " + NameOf(place), {}};
    if (const auto field = place.IsControl() ? Decoded(place, record, decoder) : std::nullopt) {
        AppendDecoded(*field, 0, {}, help.text);
    } else if (place.Number() != kNoTag) {
        help.text = TextOf(place, display);
    }
    return help;
}

}  // namespace quillory
