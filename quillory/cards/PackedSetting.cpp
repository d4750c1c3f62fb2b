#include <quillory/cards/PackedSetting.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/sets/KeyPlaces.h>
#include <quillory/text/QmText.h>
#include <quillory/text/Trimmed.h>
#include <zorby/settings/Profile.h>

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

namespace quillory {

std::string ProfileText(int id) {
    std::string qm;
    zorby::GetZorbyProfileString(id, qm);
    return QmToUtf8(qm);
}

PackedSetting::PackedSetting(int id, std::string name, std::string_view separator)
    : name_(std::move(name)) {
    if (!separator.empty()) {
        values_.SetSeperator(separator);
        defaults_.SetSeperator(separator);
    }
    values_.Set(ProfileText(id), true);
    const zorby::ProfileKeyRow* row = zorby::FindProfileKey(id);
    if (row != nullptr && row->defaultText != nullptr) defaults_.Set(row->defaultText, true);
}

std::string PackedSetting::Text(const std::string& key) const {
    std::string text;
    if (values_.GetKey(key, text) == 0) defaults_.GetKey(key, text);
    return text;
}

double PackedSetting::Number(const std::string& key, double lowest, double highest) const {
    return ParseNumber(Where(key), Text(key), lowest, highest);
}

int PackedSetting::WholeNumber(const std::string& key, int lowest, int highest) const {
    return ParseWholeNumber(Where(key), Text(key), lowest, highest);
}

zorby::CFont PackedSetting::Font(const std::string& key) const {
    return ParseFont(Where(key), Text(key));
}

void RefuseSetting(const std::string& where, const std::string& found, const std::string& allowed) {
    throw UsageError(where, {FaultCode::kNotASettingValue, {}, found, allowed});
}

zorby::CFont ParseFont(const std::string& where, const std::string& text) {
    constexpr int kSmallest = 4;
    constexpr int kLargest = 36;
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    if (parts.size() != 4 || parts[0].empty()) {
        RefuseSetting(where, text,
                      "a face, size, weight and 0 or 1 for italic, as in Courier,10,400,0");
    }
    return {parts[0], ParseWholeNumber(where, parts[1], kSmallest, kLargest),
            ParseWholeNumber(where, parts[2], 100, 900),
            ParseWholeNumber(where, parts[3], 0, 1) != 0};
}

double ParseNumber(const std::string& where, const std::string& text, double lowest,
                   double highest) {
    double number = 0;
    const std::string_view trimmed = Trimmed(text);
    const char* end = trimmed.data() + trimmed.size();
    const auto [at, error] = std::from_chars(trimmed.data(), end, number, std::chars_format::fixed);
    if (error == std::errc() && at == end && lowest <= number && number <= highest) return number;
    const auto shown = [](double bound) { return std::to_string(static_cast<int>(bound)); };
    RefuseSetting(where, text, "a number from " + shown(lowest) + " to " + shown(highest));
}

int ParseWholeNumber(const std::string& where, const std::string& text, int lowest, int highest) {
    const double number = ParseNumber(where, text, lowest, highest);
    if (number == static_cast<int>(number)) return static_cast<int>(number);
    RefuseSetting(where, text, "a whole number");
}

PlaceSet ParsePlaceList(const std::string& where, std::string text) {
    std::ranges::replace(text, '\\', ',');
    if (text.find_first_not_of(" ,") == text.npos) return {};
    return ParsePlaces(where, text);
}

}  // namespace quillory
