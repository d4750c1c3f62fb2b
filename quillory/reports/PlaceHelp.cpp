#include <quillory/exchange/LineReader.h>
#include <quillory/reports/CodedScreen.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/PlaceHelp.h>

#include <algorithm>
#include <optional>
#include <string_view>

namespace quillory {
namespace {

std::string DictionaryTextOf(const Place& place, zorby::EDISPLAYOPTIONS display) {
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
    if (const auto field = DescribeField(tag, display, !place.IsControl())) text += ToText(*field);
    return text;
}

// Lines of "0  No added entry", and others that are no part of a paragraph.
bool IsOfList(std::string_view line) {
    const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
    return line.find("  ", start) != line.npos;
}

// A window breaks the lines of a paragraph by itself.
std::string WithWholeParagraphs(std::string_view text) {
    constexpr std::string_view kIndent = "    ";
    std::string whole;
    bool isParagraph = false;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        const bool isPart = line.starts_with(kIndent) && !IsOfList(line);
        if (isPart && isParagraph) {
            whole.back() = ' ';
            whole += line.substr(kIndent.size());
        } else {
            whole += isPart ? line.substr(kIndent.size()) : line;
        }
        whole += '\n';
        isParagraph = isPart;
    }
    return whole;
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
        help.text = WithWholeParagraphs(DictionaryTextOf(place, display));
    }
    return help;
}

}  // namespace quillory
