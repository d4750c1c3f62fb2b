#include <quillory/faults/FaultCode.h>
#include <quillory/queries/PlaceSet.h>

#include <algorithm>
#include <optional>

namespace quillory {
namespace {

constexpr char kAny = 'X';
constexpr std::size_t kRangeSize = 2 * kTagSize + 1;

bool IsDivider(char c) {
    return c == ' ' || c == ',' || c == '\t' || c == '\n' || c == '\r';
}

bool IsLetterOrDigit(char c) {
    return ('0' <= c && c <= '9') || ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
}

bool IsTagPart(char c) {
    return ('0' <= c && c <= '9') || c == kAny || c == 'x';
}

// The end of a part: the blank of "650 $x" does not divide.
std::size_t EndOfPart(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size()) {
        if (IsDivider(text[end]) && !text.substr(end).starts_with(" $")) break;
        ++end;
    }
    return end;
}

// The tags at the front of a part, with what stands for them where a single tag is read.
struct Tags {
    std::string first;  // with X for any byte
    unsigned last = kNoTag;
    std::string example;
    std::size_t size = 0;  // of the text
};

Tags TakeRange(std::string_view part) {
    const unsigned first = TagNumber(part.substr(0, kTagSize));
    const bool isRange = part.size() >= kRangeSize && part[kTagSize] == '-';
    const unsigned last = isRange ? TagNumber(part.substr(kTagSize + 1, kTagSize)) : kNoTag;
    if (first == kNoTag || last == kNoTag) return {};
    return {TagText(first), last, TagText(std::max(last, 1U)), kRangeSize};
}

Tags TakeAnyTag(std::string_view part) {
    std::string tag(part.substr(0, kTagSize));
    if (tag.size() < kTagSize || !std::ranges::all_of(tag, IsTagPart)) return {};
    std::ranges::replace(tag, 'x', kAny);
    if (tag.find(kAny) == tag.npos) return {};
    std::string example = tag;
    std::ranges::replace(example, kAny, '9');
    return {tag, kNoTag, example, kTagSize};
}

// Of several codes, the text with each alone is a place.
struct Codes {
    std::string_view before;  // the text without them
    std::string_view codes;
};

Codes SplitCodes(std::string_view part) {
    std::size_t start = part.size();
    const std::size_t least = std::min(part.size(), kTagSize);
    while (start > least && IsLetterOrDigit(part[start - 1])) --start;
    return {part.substr(0, start), part.substr(start)};
}

std::optional<PlacePattern> ParseOneTag(std::string_view part) {
    if (const auto place = ParsePlace(part)) return PlacePattern{*place};
    const Codes split = SplitCodes(part);
    std::optional<PlacePattern> pattern;
    for (const char code : split.codes) {
        const auto place = ParsePlace(std::string(split.before) + code);
        if (!place || place->code == '\0') return std::nullopt;
        if (!pattern) pattern = PlacePattern{place->Subfield('\0')};
        if (!pattern->HasCode(code)) pattern->codes += code;
    }
    if (pattern && pattern->codes.size() == 1) {
        pattern->place.code = pattern->codes.front();
        pattern->codes.clear();
    }
    return pattern;
}

std::optional<PlacePattern> ParsePart(std::string_view part) {
    Tags tags = TakeRange(part);
    if (tags.size == 0) tags = TakeAnyTag(part);
    if (tags.size == 0) return ParseOneTag(part);
    auto pattern = ParseOneTag(tags.example + std::string(part.substr(tags.size)));
    if (!pattern) return std::nullopt;
    std::ranges::copy(tags.first, pattern->place.tag.begin());
    pattern->lastTag = tags.last;
    return pattern;
}

bool IsBackwards(const PlacePattern& pattern) {
    return pattern.lastTag != kNoTag && pattern.place.Number() > pattern.lastTag;
}

TextFault FaultOf(FaultCode code, std::size_t offset, std::string_view found) {
    TextFault fault{{code}, offset, found.size()};
    fault.found = found;
    return fault;
}

}  // namespace

bool PlacePattern::Covers(std::string_view tag) const {
    if (lastTag != kNoTag) {
        const unsigned number = TagNumber(tag);
        return number != kNoTag && place.Number() <= number && number <= lastTag;
    }
    if (tag == place.Tag()) return true;
    return std::ranges::equal(tag, place.Tag(),
                              [](char c, char known) { return known == kAny || known == c; });
}

bool PlaceSet::Covers(std::string_view tag) const {
    return std::ranges::any_of(patterns, [tag](const auto& known) { return known.Covers(tag); });
}

PlaceSetReading ParsePlaceSet(std::string_view text) {
    PlaceSetReading reading;
    std::size_t at = 0;
    while (true) {
        while (at < text.size() && IsDivider(text[at])) ++at;
        if (at == text.size()) break;
        const std::string_view part = text.substr(at, EndOfPart(text.substr(at)));
        const auto pattern = ParsePart(part);
        if (!pattern) return {{}, FaultOf(FaultCode::kNoPlace, at, part)};
        if (IsBackwards(*pattern)) return {{}, FaultOf(FaultCode::kRangeBackwards, at, part)};
        reading.places.patterns.push_back(*pattern);
        at += part.size();
    }
    if (reading.places.Empty()) reading.fault = {{FaultCode::kNoPlaceGiven}, text.size(), 0};
    return reading;
}

std::string PlacePatternText(const PlacePattern& pattern) {
    std::string text = PlaceText(pattern.place);
    if (pattern.lastTag != kNoTag) text.insert(kTagSize, "-" + TagText(pattern.lastTag));
    return text + pattern.codes;
}

std::string PlaceSetText(const PlaceSet& places) {
    std::string text;
    for (const PlacePattern& pattern : places.patterns) {
        text += (text.empty() ? "" : ", ") + PlacePatternText(pattern);
    }
    return text;
}

}  // namespace quillory
