#include <quillory/cataloging/Entry.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Charset.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

// Elements of 008 that every new record needs have names.
struct NamedPositions {
    std::string_view name;
    int first;
    int last;
};
constexpr std::array<NamedPositions, 2> kNamed{{{"language", 35, 37}, {"country", 15, 17}}};

// How a place is filled. An indicator, and a field of one material, can't be filled.
std::optional<EntryKind> KindOf(const Place& place) {
    if (place.indicator != 0 || place.material != '\0') return std::nullopt;
    if (place.HasPositions()) return EntryKind::Positions;
    if (place.IsControl()) return EntryKind::ControlField;
    return place.code != '\0' ? EntryKind::Subfield : EntryKind::WrittenField;
}

Place PlaceFrom(std::string_view text) {
    const std::optional<Place> place = ParsePlace(text);
    if (place && KindOf(*place)) return *place;
    throw EntryError({FaultCode::kNotAnEntryPlace, {}, std::string(text)});
}

// The text on one line, as a field holds it.
std::string OnOneLine(std::string_view text, const Place& place) {
    std::string line;
    for (const char c : text) {
        const bool isBreak = c == '\n' || c == '\r' || c == '\t';
        if (!isBreak && IsAsciiControl(c)) throw EntryError({FaultCode::kControlCharacter, place});
        if (!isBreak) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (!text.empty() && IsAsciiControl(text.back()) && line.ends_with(' ')) line.pop_back();
    if (!IsValidUtf8(line)) throw EntryError({FaultCode::kTextNotUtf8, place});
    return line;
}

// The same, but empty if it is all blank.
std::string FieldText(std::string_view text, const Place& place) {
    const std::string line = OnOneLine(text, place);
    return IsBlank(line) ? "" : line;
}

char CodeFrom(std::string_view code, const Place& place) {
    const bool isCode = code.size() == 1 && code[0] > ' ' && code[0] <= '~' && code[0] != '$';
    if (!isCode) throw EntryError({FaultCode::kNotASubfieldCode, place, std::string(code)});
    return code[0];
}

std::string Unescaped(std::string_view text) {
    constexpr std::string_view kDollar = "{dollar}";
    std::string plain(text);
    for (std::size_t at = 0; (at = plain.find(kDollar, at)) != plain.npos; ++at) {
        plain.replace(at, kDollar.size(), "$");
    }
    return plain;
}

// Takes a subfield off the front of `rest`, which begins with a dollar sign.
void TakeSubfield(std::string_view& rest, Entry& entry) {
    const std::string_view subfield = rest.substr(1, rest.find('$', 1) - 1);
    if (subfield.empty()) throw EntryError({FaultCode::kSubfieldWithoutCode, entry.place});
    const std::size_t codeSize = DecodeUtf8(subfield).size;
    const char code = CodeFrom(subfield.substr(0, codeSize), entry.place);
    std::string text = Unescaped(subfield.substr(codeSize));
    if (!IsBlank(text)) entry.subfields.push_back({code, std::move(text)});
    rest.remove_prefix(1 + subfield.size());
}

void ReadWrittenField(std::string_view text, Entry& entry) {
    if (text.empty()) return;
    const std::string line = OnOneLine(text, entry.place);
    std::string_view rest = line;
    if (rest.size() < kIndicators + 2 || rest[kIndicators] != '$') {
        throw EntryError({FaultCode::kNotAWrittenField, entry.place});
    }
    SetIndicators(entry, rest.substr(0, kIndicators));
    rest.remove_prefix(kIndicators);
    while (!rest.empty()) TakeSubfield(rest, entry);
}

}  // namespace

Entry ReadEntry(std::string_view place, std::string_view text) {
    const auto named = std::ranges::find(kNamed, place, &NamedPositions::name);
    if (named == kNamed.end()) return MakeEntry(PlaceFrom(place), text);
    const auto width = static_cast<std::size_t>(named->last - named->first) + 1;
    std::string code(text);
    code.resize(std::max(code.size(), width), ' ');
    return MakeEntry(Place::OfField("008").Positions(named->first, named->last), code);
}

Entry MakeEntry(const Place& place, std::string_view text) {
    const std::optional<EntryKind> kind = KindOf(place);
    if (!kind) throw EntryError({FaultCode::kNotAnEntryPlace, {}, PlaceText(place)});
    Entry entry;
    entry.kind = *kind;
    entry.place = place;
    if (kind == EntryKind::Subfield) {
        entry.subfields = {{place.code, FieldText(text, place)}};
    } else if (kind == EntryKind::WrittenField) {
        ReadWrittenField(text, entry);
    } else if (kind == EntryKind::Positions) {
        entry.text = OnOneLine(text, place);
    } else if (place.IsLeader()) {
        throw EntryError({FaultCode::kWholeLeader, place});
    } else {
        entry.text = FieldText(text, place);
    }
    return entry;
}

Entry BeginField(std::string_view place) {
    Entry entry;
    entry.kind = EntryKind::Field;
    entry.place = PlaceFrom(place);
    if (KindOf(entry.place) != EntryKind::WrittenField) {
        throw EntryError({FaultCode::kNotADataField, entry.place});
    }
    return entry;
}

void SetIndicators(Entry& field, std::string_view indicators) {
    constexpr std::string_view kBlankSigns = "_#\\";
    if (indicators.size() != 2) throw EntryError({FaultCode::kNotTwoIndicators, field.place});
    field.indicators = indicators;
    for (char& c : field.indicators) {
        if (kBlankSigns.find(c) != kBlankSigns.npos) c = ' ';
        if (c < ' ' || c > '~') throw EntryError({FaultCode::kNotAnIndicator, field.place});
    }
}

void AddSubfield(Entry& field, std::string_view code, std::string_view text) {
    const char letter = CodeFrom(code, field.place);
    field.subfields.push_back({letter, FieldText(text, field.place)});
}

}  // namespace quillory
