#include <quillory/arguments/ArgumentValue.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Listed.h>

#include <algorithm>
#include <charconv>

namespace quillory {
namespace {

// What a number has to be, if it is not too large to be one.
std::string RangeText(const NumberRange& range, bool isTooLarge) {
    using Limits = std::numeric_limits<std::int64_t>;
    const bool hasLowest = range.lowest != Limits::min();
    const bool hasHighest = range.highest != Limits::max() || isTooLarge;
    std::string text = "number";
    if (hasLowest) text += " from " + std::to_string(range.lowest);
    if (hasHighest) return text + (hasLowest ? " to " : " up to ") + std::to_string(range.highest);
    return text + (hasLowest ? " on" : "");
}

}  // namespace

std::int64_t ReadNumber(const std::string& text, const NumberRange& range) {
    std::int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    const bool isNumber = read.ec == std::errc() && read.ptr == end;
    if (isNumber && number >= range.lowest && number <= range.highest) return number;
    const bool isTooLarge = read.ec == std::errc::result_out_of_range && !text.starts_with('-');
    throw UsageError("\"" + text + "\" is not a " + RangeText(range, isTooLarge));
}

std::size_t ReadChoice(const std::string& text, const std::vector<std::string>& choices) {
    for (std::size_t at = 0; at < choices.size(); ++at) {
        if (std::ranges::equal(text, choices[at], {}, LowerAscii, LowerAscii)) return at;
    }
    throw UsageError("\"" + text + "\" is not one of " + Listed(choices));
}

std::optional<std::pair<std::string, std::string>> SplitKeyValue(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == 0 || sign == text.npos) return std::nullopt;
    return std::pair(text.substr(0, sign), text.substr(sign + 1));
}

}  // namespace quillory
