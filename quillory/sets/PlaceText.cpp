#include <quillory/sets/PlaceText.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Charset.h>
#include <quillory/text/SearchText.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <array>
#include <functional>

namespace quillory {
namespace {

using zorby::CommFormatField;

constexpr std::string_view kTitleTag = "245";
constexpr std::string_view kTitleCodes = "abnp";
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

// Which indicator of a field tells how many characters at its beginning do not file, from 0 on
// (MARC 21 Format for Bibliographic Data).
struct NonfilingRow {
    std::string_view tag;
    std::size_t indicator;
};
constexpr std::array<NonfilingRow, 11> kNonfiling{{
    {"130", 0},
    {"222", 1},
    {"240", 1},
    {"242", 1},
    {"243", 1},
    {"245", 1},
    {"440", 1},
    {"630", 0},
    {"730", 0},
    {"740", 0},
    {"830", 1},
}};

std::size_t NonfilingCharacters(const CommFormatField& field) {
    const auto* const row = std::ranges::find(kNonfiling, field.tag, &NonfilingRow::tag);
    if (row == kNonfiling.end() || field.content.size() < 2) return 0;
    const char count = field.content[row->indicator];
    return '1' <= count && count <= '9' ? static_cast<std::size_t>(count - '0') : 0;
}

// Characters are counted as the text has them: bytes, unless it is UTF-8.
std::string_view WithoutNonfiling(const CommFormatField& field, std::string_view text) {
    const bool isUtf8 = IsValidUtf8(text);
    std::string_view rest = text;
    for (std::size_t left = NonfilingCharacters(field); left > 0 && !rest.empty(); --left) {
        rest.remove_prefix(isUtf8 ? DecodeUtf8(rest).size : 1);
    }
    return rest.empty() ? text : rest;
}

// The field that a value is in.
const CommFormatField* FieldAround(const Record& record, std::string_view value) {
    const auto isAround = [value](const CommFormatField& field) {
        const char* begin = field.content.data();
        return std::less_equal<>()(begin, value.data()) &&
               std::less_equal<>()(value.data() + value.size(), begin + field.content.size());
    };
    const auto field = std::ranges::find_if(record.fields, isAround);
    return field == record.fields.end() ? nullptr : &*field;
}

const CommFormatField* FieldOf(const Record& record, std::string_view tag) {
    const auto field = std::ranges::find(record.fields, tag, &CommFormatField::tag);
    return field == record.fields.end() ? nullptr : &*field;
}

// What stands between the signs U+0098 and U+009C does not sort.
std::string WithoutNonsorting(std::string text) {
    constexpr std::string_view kBegin = "\xC2\x98";
    constexpr std::string_view kEnd = "\xC2\x9C";
    for (auto begin = text.find(kBegin); begin != text.npos; begin = text.find(kBegin)) {
        const auto end = text.find(kEnd, begin);
        text.erase(begin, (end == text.npos ? begin : end) + kEnd.size() - begin);
    }
    return text;
}

}  // namespace

std::string PlaceTexts::Joined(const Record& record, std::string_view content,
                               std::string_view codes, const CommFormatField* nonfiling) {
    std::string text;
    ForEachSubfield(content, [&](char code, std::string_view part) {
        if (codes.find(code) == codes.npos) return;
        if (nonfiling != nullptr) part = WithoutNonfiling(*nonfiling, part);
        nonfiling = nullptr;
        text.append(text.empty() ? "" : " ").append(reader_.TextOf(record, {{}, part}));
    });
    return text;
}

std::string PlaceTexts::TextOf(const Record& record, const ValueSlice& slice, bool skips) {
    const CommFormatField* field = skips ? FieldAround(record, slice.bytes) : nullptr;
    if (slice.isField && slice.bytes.starts_with(zorby::kDelimiter)) {
        return Joined(record, slice.bytes, kLetters, field);
    }
    if (field != nullptr && slice.place.code == 'a') {
        return std::string(reader_.TextOf(record, {{}, WithoutNonfiling(*field, slice.bytes)}));
    }
    return std::string(reader_.TextOf(record, slice));
}

std::optional<std::string> PlaceTexts::First(const Record& record, const KeyPlace& place,
                                             bool skips) {
    reader_.Begin();
    if (place.isTitle) {
        const CommFormatField* field = FieldOf(record, kTitleTag);
        std::string title;
        if (field != nullptr) {
            title = Joined(record, field->content, kTitleCodes, skips ? field : nullptr);
        }
        return IsBlank(title) ? std::nullopt : std::optional(title);
    }
    std::optional<std::string> first;
    ForEachSlice(record, place.place, [&](const ValueSlice& slice) {
        if (first || (!slice.isCoded && IsBlank(slice.bytes))) return;
        first = TextOf(record, slice, skips);
        if (!slice.isCoded && IsBlank(*first)) first.reset();
    });
    return first;
}

std::optional<std::string> PlaceTexts::FirstOf(const Record& record, const KeyPlace& place) {
    return First(record, place, false);
}

std::optional<std::string> PlaceTexts::FiledBy(const Record& record, const KeyPlace& place) {
    auto text = First(record, place, true);
    if (text) text = WithoutNonsorting(std::move(*text));
    return text;
}

std::vector<std::string> PlaceTexts::AllOf(const Record& record, const KeyPlace& place) {
    std::vector<std::string> texts;
    reader_.Begin();
    ForEachSlice(record, place.place, [&](const ValueSlice& slice) {
        std::string text = TextOf(record, slice, false);
        if (!IsBlank(text)) texts.push_back(std::move(text));
    });
    return texts;
}

std::string PlaceTexts::FieldText(const Record& record, std::string_view tag,
                                  std::string_view codes) {
    reader_.Begin();
    const CommFormatField* field = FieldOf(record, tag);
    return field == nullptr ? std::string() : Joined(record, field->content, codes, nullptr);
}

}  // namespace quillory
