#include <quillory/places/Place.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <charconv>

namespace quillory {
namespace {

constexpr std::string_view kLeaderTag = "LDR";
constexpr std::string_view kCodedTags[] = {"006", "007", "008"};

bool IsGraphic(char c) {
    return ' ' < c && c <= '~';
}

// Takes a word off the front of `text`, whatever its case.
bool TakeWord(std::string_view word, std::string_view& text) {
    if (!std::ranges::equal(text.substr(0, word.size()), word, {}, LowerAscii)) return false;
    text.remove_prefix(word.size());
    return true;
}

// Takes digits off the front of `text`; nothing if there are none, or too many.
std::optional<std::int32_t> TakeNumber(std::string_view& text) {
    std::int32_t number = 0;
    if (text.empty() || text.front() == '-') return std::nullopt;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return number;
}

bool TakeTag(std::string_view& text, Place& place) {
    if (TakeWord("leader", text) || TakeWord("ldr", text)) {
        place = Place::OfLeader();
        return true;
    }
    const unsigned tag = TagNumber(text.substr(0, kTagSize));
    if (tag == kNoTag || tag == 0) return false;
    place = Place::OfField(tag);
    text.remove_prefix(kTagSize);
    return true;
}

// "[2]", if it is there.
bool TakeOccurrence(std::string_view& text, Place& place) {
    if (!text.starts_with('[')) return true;
    text.remove_prefix(1);
    const auto occurrence = TakeNumber(text);
    if (place.IsLeader() || !occurrence || *occurrence == 0 || !text.starts_with(']')) return false;
    place.occurrence = static_cast<std::uint32_t>(*occurrence);
    text.remove_prefix(1);
    return true;
}

// The letter of a material, if it is there.
void TakeMaterial(std::string_view& text, Place& place) {
    const bool isCoded = std::ranges::find(kCodedTags, place.Tag()) != std::end(kCodedTags);
    const char letter = text.empty() ? '\0' : LowerAscii(text.front());
    if (!isCoded || letter < 'a' || letter > 'z') return;
    place.material = letter;
    text.remove_prefix(1);
}

bool TakePositions(std::string_view& text, Place& place) {
    const auto first = TakeNumber(text);
    if (!first) return false;
    place.first = place.last = *first;
    if (!text.starts_with('-')) return true;
    text.remove_prefix(1);
    const auto last = TakeNumber(text);
    place.last = last.value_or(-1);
    return place.first <= place.last;
}

// What stands after the tag of a control field, to the end of the text.
bool TakeControlPart(std::string_view text, Place& place) {
    TakeMaterial(text, place);
    if (text.empty()) return true;
    if (text.front() != '/') return false;
    text.remove_prefix(1);
    return TakePositions(text, place) && text.empty();
}

bool TakeDataPart(std::string_view text, Place& place) {
    if (text.empty()) return true;
    if (text == "/1" || text == "/2") {
        place.indicator = static_cast<std::uint8_t>(text[1] - '0');
        return true;
    }
    if (text.starts_with(" $")) text.remove_prefix(1);
    if (text.size() == 2 && text.front() == '$') text.remove_prefix(1);
    if (text.size() != 1 || !IsGraphic(text[0]) || text[0] == '$') return false;
    place.code = text[0];
    return true;
}

std::string TagShown(const Place& place) {
    if (place.IsLeader()) return "leader";
    std::string text = Printable(place.Tag());
    if (place.material != '\0') text += Printable({&place.material, 1});
    return text;
}

}  // namespace

std::string Printable(std::string_view bytes) {
    std::string text(bytes);
    std::ranges::replace_if(
        text, [](char c) { return c != ' ' && !IsGraphic(c); }, '?');
    return text;
}

std::string HexText(char byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    return {'0', 'x', kDigits[value / 16], kDigits[value % 16]};
}

Place Place::OfLeader() {
    return OfField(kLeaderTag);
}

Place Place::OfField(unsigned tag, std::uint32_t occurrence) {
    const auto digit = [](unsigned value) { return static_cast<char>('0' + value % 10); };
    Place place;
    place.tag = {digit(tag / 100), digit(tag / 10), digit(tag)};
    place.occurrence = occurrence;
    return place;
}

Place Place::Field() const {
    return OfField(Tag(), occurrence);
}

bool Place::IsLeader() const {
    return Tag() == kLeaderTag;
}

bool Place::IsControl() const {
    return IsLeader() || Number() < kFirstDataTag;
}

std::string PositionsText(int first, int last) {
    const auto two = [](int position) {
        return (position < 10 ? "0" : "") + std::to_string(position);
    };
    return first == last ? two(first) : two(first) + "-" + two(last);
}

std::string PlaceText(const Place& place) {
    if (place.IsRecord()) return {};
    std::string text = TagShown(place);
    if (place.occurrence > 1) {
        const std::string occurrence = "[" + std::to_string(place.occurrence) + "]";
        text.insert(std::min(text.size(), kTagSize), occurrence);
    }
    if (place.HasPositions()) text.append("/").append(PositionsText(place.first, place.last));
    if (place.indicator != 0) text.append("/").append(std::to_string(place.indicator));
    if (place.code != '\0') text.append(" $").append(Printable({&place.code, 1}));
    return text;
}

std::optional<Place> ParsePlace(std::string_view text) {
    Place place;
    if (!TakeTag(text, place) || !TakeOccurrence(text, place)) return std::nullopt;
    const bool isPlace =
        place.IsControl() ? TakeControlPart(text, place) : TakeDataPart(text, place);
    return isPlace ? std::optional(place) : std::nullopt;
}

}  // namespace quillory
