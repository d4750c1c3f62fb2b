#include <quillory/faults/Errors.h>
#include <quillory/sets/MatchKey.h>
#include <quillory/sets/StandardNumbers.h>
#include <quillory/text/SearchText.h>

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace quillory {
namespace {

using Normal = std::string (*)(std::string_view text);

// Fields that hold a standard number, in $a.
struct NumberRow {
    std::string_view tag;
    Normal normal;
};
constexpr std::array<NumberRow, 4> kNumbers{{
    {"010", NormalLccn},
    {"020", NormalIsbn},
    {"022", NormalIssn},
    {"035", NormalSystemNumber},
}};

const NumberRow* NumberAt(const PlacePattern& pattern) {
    const auto* const row = std::ranges::find(kNumbers, pattern.place.Tag(), &NumberRow::tag);
    const bool isOfOneTag = pattern.lastTag == kNoTag;
    return row == kNumbers.end() || !isOfOneTag || pattern.place.indicator != 0 ? nullptr : row;
}

// Words of letters, digits and all beyond ASCII, with a blank between any two.
std::string Words(std::string_view utf8) {
    std::string words;
    bool isGap = false;
    for (const char c : Folded(TidyText(utf8))) {
        const bool isSign = c < 0 || ('a' <= c && c <= 'z') || ('0' <= c && c <= '9');
        if (isSign && isGap && !words.empty()) words += ' ';
        if (isSign) words += c;
        isGap = !isSign;
    }
    return words;
}

bool IsWholeControlField(const PlacePattern& pattern) {
    return pattern.place.IsControl() && !pattern.place.HasPositions();
}

std::string NormalText(const PlacePattern& pattern, const std::string& text) {
    if (const NumberRow* number = NumberAt(pattern)) return number->normal(text);
    if (pattern.IsCoded()) return text;
    return IsWholeControlField(pattern) ? TidyText(text) : Words(text);
}

// "020" is as good as "020a".
KeyPlace WithSubfield(KeyPlace place) {
    for (PlacePattern& pattern : place.place.patterns) {
        if (NumberAt(pattern) != nullptr && !pattern.HasCodes()) pattern.place.code = 'a';
    }
    return place;
}

// Four digits in a row.
std::string YearIn(std::string_view text) {
    constexpr std::size_t kYear = 4;
    for (std::size_t at = 0; at + kYear <= text.size(); ++at) {
        const std::string_view year = text.substr(at, kYear);
        if (year.find_first_not_of("0123456789") == year.npos) return std::string(year);
    }
    return {};
}

}  // namespace

MatchKeys::MatchKeys(const std::vector<std::string>& ways, Charset charset) : texts_(charset) {
    for (const std::string& text : ways) {
        Way way{text, {}};
        for (KeyPlace& place : ParseKeyPlaces("--by", text)) {
            way.places.push_back(WithSubfield(std::move(place)));
        }
        ways_.push_back(std::move(way));
    }
    if (ways_.empty()) throw UsageError("--by says by what records match, as in 001 or 020");
}

// Author and date are part of the key whether they are there or not.
std::string MatchKeys::TitleOf(const Record& record) {
    constexpr std::size_t kType = 6;
    constexpr std::size_t kDate1 = 7;
    constexpr std::size_t kDateSize = 4;
    const std::string title = Words(texts_.FieldText(record, "245", "abnp"));
    if (title.empty()) return {};
    std::string author;
    for (const char* tag : {"100", "110", "111"}) {
        if (author.empty()) author = Words(texts_.FieldText(record, tag, "a"));
    }
    std::string year;
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag == "008" && field.content.size() > kDate1 + kDateSize && year.empty()) {
            year = YearIn(field.content.substr(kDate1, kDateSize));
        }
    }
    for (const char* tag : {"264", "260"}) {
        if (year.empty()) year = YearIn(texts_.FieldText(record, tag, "c"));
    }
    return std::string(record.leader.substr(kType, 1)) + " / " + title + " / " + author + " / " +
           year;
}

std::vector<std::string> MatchKeys::ValuesOf(const Record& record, const KeyPlace& place) {
    std::vector<std::string> values;
    if (place.isTitle) {
        values.push_back(TitleOf(record));
    } else {
        const PlacePattern& pattern = place.place.patterns.front();
        for (const std::string& text : texts_.AllOf(record, place)) {
            values.push_back(NormalText(pattern, text));
        }
    }
    std::erase(values, std::string());
    return values;
}

std::string MatchKeys::TogetherOf(const Record& record, const Way& way) {
    std::string together;
    for (const KeyPlace& place : way.places) {
        const auto values = ValuesOf(record, place);
        if (values.empty()) return {};
        together += (together.empty() ? "" : " + ") + values.front();
    }
    return together;
}

void MatchKeys::Of(const Record& record, std::vector<std::string>& keys) {
    keys.clear();
    std::set<std::string> known;
    const auto add = [&](const Way& way, const std::string& value) {
        std::string key = way.name + " " + value;
        if (known.insert(key).second) keys.push_back(std::move(key));
    };
    for (const Way& way : ways_) {
        if (way.places.size() == 1) {
            for (const std::string& value : ValuesOf(record, way.places.front())) add(way, value);
        } else if (const std::string together = TogetherOf(record, way); !together.empty()) {
            add(way, together);
        }
    }
}

}  // namespace quillory
