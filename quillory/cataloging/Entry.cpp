#include <quillory/cataloging/Entry.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Charset.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace quillory {
namespace {

constexpr const char* kSuchAs =
    "is no place: such are 245a, 650[2]a, 245, 001, 008/35-37, leader/17, language, country";

// Elements of 008 that every new record needs, by a name of their own.
struct NamedPositions {
    std::string_view name;
    std::string_view place;
    std::size_t width;
};
constexpr std::array<NamedPositions, 2> kNamed{{
    {"language", "008/35-37", 3},
    {"country", "008/15-17", 3},
}};

bool IsDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

int NumberOf(std::string_view digits, std::string_view place) {
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const bool isNumber =
        IsDigits(digits) && std::from_chars(digits.data(), end, number).ec == std::errc();
    if (!isNumber) throw EntryError(place, kSuchAs);
    return number;
}

// Takes "[2]" off the front of `rest`.
int TakeOccurrence(std::string_view& rest, std::string_view place) {
    if (!rest.starts_with('[')) return 0;
    const std::size_t close = rest.find(']');
    if (close == rest.npos) throw EntryError(place, kSuchAs);
    const int occurrence = NumberOf(rest.substr(1, close - 1), place);
    if (occurrence == 0) throw EntryError(place, "fields are counted from 1");
    rest.remove_prefix(close + 1);
    return occurrence;
}

void TakePositions(std::string_view text, Entry& entry) {
    const std::size_t dash = std::min(text.find('-'), text.size());
    entry.kind = EntryKind::Positions;
    entry.first = NumberOf(text.substr(0, dash), entry.place);
    entry.last = dash == text.size() ? entry.first : NumberOf(text.substr(dash + 1), entry.place);
    if (entry.last < entry.first) throw EntryError(entry.place, kSuchAs);
}

// The tag, the occurrence, and what is behind them.
std::string_view TakeTag(std::string_view place, Entry& entry) {
    entry.place = place;
    std::string_view rest = place;
    for (const std::string_view leader : {"leader", "ldr", "LDR"}) {
        if (rest.starts_with(leader)) return rest.substr(leader.size());
    }
    const std::string_view digits = rest.substr(0, kTagSize);
    entry.tag = static_cast<unsigned>(NumberOf(digits, place));
    if (digits.size() != kTagSize || entry.tag == 0) throw EntryError(place, kSuchAs);
    rest.remove_prefix(kTagSize);
    entry.occurrence = TakeOccurrence(rest, place);
    return rest;
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// The text on one line, as a field holds it.
std::string OnOneLine(std::string_view text, std::string_view place) {
    std::string line;
    for (const char c : text) {
        const bool isBreak = c == '\n' || c == '\r' || c == '\t';
        if (!isBreak && IsControl(c)) {
            throw EntryError(place, "the text has a control character");
        }
        if (!isBreak) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (!text.empty() && IsControl(text.back()) && line.ends_with(' ')) line.pop_back();
    if (!IsValidUtf8(line)) throw EntryError(place, "the text is no UTF-8");
    return line;
}

// The same, and nothing for blanks alone.
std::string FieldText(std::string_view text, std::string_view place) {
    std::string line = OnOneLine(text, place);
    if (line.find_first_not_of(' ') == line.npos) line.clear();
    return line;
}

char CodeOf(std::string_view code, std::string_view place) {
    const bool isCode = code.size() == 1 && code[0] > ' ' && code[0] <= '~' && code[0] != '$';
    if (!isCode) throw EntryError(place, kSuchAs);
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

void ReadWrittenField(std::string_view text, Entry& entry) {
    constexpr std::size_t kIndicators = 2;
    entry.kind = EntryKind::WrittenField;
    if (text.empty()) return;
    const std::string line = OnOneLine(text, entry.place);
    std::string_view rest = line;
    if (rest.size() < kIndicators + 2 || rest[kIndicators] != '$') {
        throw EntryError(entry.place,
                         "a whole field is two indicators and subfields, such as 10$aTitle");
    }
    SetIndicators(entry, rest.substr(0, kIndicators));
    rest.remove_prefix(kIndicators);
    while (!rest.empty()) {
        const std::size_t size = std::min(rest.find('$', 1), rest.size());
        if (size == 1) throw EntryError(entry.place, "a subfield sign ($) without a code");
        const char code = CodeOf(rest.substr(1, 1), entry.place);
        std::string value = Unescaped(rest.substr(2, size - 2));
        const bool isBlank = value.find_first_not_of(' ') == value.npos;
        if (!isBlank) entry.subfields.push_back({code, std::move(value)});
        rest.remove_prefix(size);
    }
}

}  // namespace

Entry ReadEntry(std::string_view place, std::string_view text) {
    const auto named = std::ranges::find(kNamed, place, &NamedPositions::name);
    if (named != kNamed.end()) {
        std::string code(text);
        code.resize(std::max(code.size(), named->width), ' ');
        return ReadEntry(named->place, code);
    }
    Entry entry;
    const std::string_view rest = TakeTag(place, entry);
    if (rest.starts_with('/')) {
        if (entry.tag >= kFirstDataTag) throw EntryError(place, kSuchAs);
        TakePositions(rest.substr(1), entry);
        entry.text = OnOneLine(text, place);
    } else if (entry.tag == 0) {
        throw EntryError(place, "the leader is told by positions, such as leader/17");
    } else if (entry.tag < kFirstDataTag) {
        if (!rest.empty()) throw EntryError(place, kSuchAs);
        entry.kind = EntryKind::ControlField;
        entry.text = FieldText(text, place);
    } else if (rest.empty()) {
        ReadWrittenField(text, entry);
    } else {
        AddSubfield(entry, rest, text);
    }
    return entry;
}

Entry BeginField(std::string_view place) {
    Entry entry;
    entry.kind = EntryKind::Field;
    if (!TakeTag(place, entry).empty() || entry.tag < kFirstDataTag) {
        throw EntryError(place, "only the tag of a data field, such as 245, has subfields");
    }
    return entry;
}

void SetIndicators(Entry& field, std::string_view indicators) {
    constexpr std::string_view kBlankSigns = "_#\\";
    if (indicators.size() != 2) throw EntryError(field.place, "indicators are two characters");
    field.indicators = indicators;
    for (char& c : field.indicators) {
        if (kBlankSigns.find(c) != kBlankSigns.npos) c = ' ';
        if (c < ' ' || c > '~') {
            throw EntryError(field.place, "an indicator is a digit, a letter or a blank (_)");
        }
    }
}

void AddSubfield(Entry& field, std::string_view code, std::string_view text) {
    const char letter = CodeOf(code, field.place);
    field.subfields.push_back({letter, FieldText(text, field.place)});
}

}  // namespace quillory
